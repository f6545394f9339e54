#include "DatabaseCatalogue.h"

#include "DayKey.h"
#include "RecordDatabase.h"

QString DatabaseCatalogue::baseName(UserDatabase which) {
    switch (which) {
    case UserDatabase::UpperA:
        return QStringLiteral("Kov2AUpperBody");
    case UserDatabase::UpperB:
        return QStringLiteral("Kov2BUpperBody");
    case UserDatabase::LowerA:
        return QStringLiteral("Kov2ALowerBody");
    case UserDatabase::LowerB:
        return QStringLiteral("Kov2BLowerBody");
    case UserDatabase::Aerobic:
        return QStringLiteral("Kov2Aerobic");
    case UserDatabase::Food:
        return QStringLiteral("Kov2Food");
    }
    return {};
}

QString DatabaseCatalogue::userSuffix(const QString& user) {
    return user == QStringLiteral("Default") ? QString() : user;
}

QString DatabaseCatalogue::userDatabaseName(UserDatabase which, const QString& user) {
    return baseName(which) + userSuffix(user);
}

std::array<QString, kUserDatabaseCount> DatabaseCatalogue::userDatabaseNames(const QString& user) {
    std::array<QString, kUserDatabaseCount> names;
    for (int i = 0; i < kUserDatabaseCount; ++i) {
        names[i] = userDatabaseName(static_cast<UserDatabase>(i), user);
    }
    return names;
}

bool DatabaseCatalogue::ensureExists(const QString& name, CEPROPID sortProp) {
    return RecordDatabase::Exists(name) || RecordDatabase::Create(name, RecordDatabase::kDatabaseType, sortProp);
}

bool DatabaseCatalogue::ensureDatedLog(const QString& name) {
    if (RecordDatabase::Exists(name)) {
        return true;
    }
    if (!RecordDatabase::Create(name, RecordDatabase::kDatabaseType, DayKey::kPropId)) {
        return false;
    }
    DbRecord marker;
    marker.append(DbProp::fileTime(DayKey::kNumber, DayKey::referenceDay()));
    RecordDatabase db;
    return db.Open(name, DayKey::kPropId) && db.Write(marker, 0) != 0;
}

bool DatabaseCatalogue::deleteIfExists(const QString& name) {
    if (!RecordDatabase::Exists(name)) {
        return true;
    }
    RecordDatabase db;
    return db.Open(name) && db.DeleteDatabase();
}
