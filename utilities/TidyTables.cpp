#include "TidyTables.h"

namespace {
QStringList minuteColumns() {
    QStringList names;
    for (int minute = 1; minute <= 20; ++minute) {
        names << QStringLiteral("minute_%1").arg(minute);
    }
    return names;
}
} // namespace

QString TidyTables::fileName(Table table) {
    switch (table) {
    case Table::Workouts:
        return QStringLiteral("workouts.csv");
    case Table::Sets:
        return QStringLiteral("sets.csv");
    case Table::Aerobic:
        return QStringLiteral("aerobic.csv");
    case Table::Body:
        return QStringLiteral("body.csv");
    case Table::Meals:
        return QStringLiteral("meals.csv");
    }
    return {};
}

const QStringList& TidyTables::header(Table table) {
    static const std::array<QStringList, kTables> headers = {{
        {"date", "region", "start", "elapsed", "completed", "notes"},
        {"date", "region", "group", "set", "exercise", "reps", "weight", "rest", "intensity"},
        QStringList{"date", "exercise_number", "exercise", "course", "distance", "heart_rate", "start", "elapsed",
                    "completed", "notes"} +
            minuteColumns(),
        {"date", "water", "weight", "body_fat", "sleep", "sleep_quality", "overall_feeling", "systolic", "diastolic",
         "resting_heart_rate", "chest", "biceps", "waist", "quads", "calves", "notes"},
        {"date", "meal", "time", "protein", "carbohydrate", "vegetable", "other"},
    }};
    return headers[static_cast<size_t>(table)];
}

bool TidyTables::matches(Table table, const QStringList& found) {
    const QStringList& wanted = header(table);
    if (found.size() != wanted.size()) {
        return false;
    }
    for (qsizetype i = 0; i < wanted.size(); ++i) {
        if (found.at(i).trimmed().compare(wanted.at(i), Qt::CaseInsensitive) != 0) {
            return false;
        }
    }
    return true;
}
