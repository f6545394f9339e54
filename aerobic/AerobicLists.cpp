#include "AerobicLists.h"

#include "NameList.h"

QStringList AerobicLists::defaultExercises() {
    return {QStringLiteral("Bike"), QStringLiteral("Elliptical"), QStringLiteral("Rowing"),
            QStringLiteral("Run"),  QStringLiteral("Swim"),       QStringLiteral("Walk")};
}

QStringList AerobicLists::load(const QString& databaseName) {
    const NameList list(databaseName);
    const bool made = databaseName == kExercises ? list.ensureExists(defaultExercises()) : list.ensureExists();
    if (!made) {
        return {};
    }
    return list.items().value_or(QStringList());
}
