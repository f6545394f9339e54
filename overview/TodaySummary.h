#pragma once
// The two texts the Today page draws from the current user's logs: today's workout and the next
// meal still to come. Recomputed from the databases before every drawing; nothing is kept.
//
// The texts never show a message: a log that does not exist, cannot be opened or has no record for
// today reads as a day with nothing logged.

#include <QDate>
#include <QDateTime>
#include <QString>

class TodaySummary {
public:
    static inline const QString kNoWorkout = QStringLiteral("No workout scheduled");
    static inline const QString kNoMealsToday = QStringLiteral("No meals planned today");
    static inline const QString kNoRemainingMeals = QStringLiteral("No remaining meals scheduled");

    // Today's aerobic exercises ("Run, Swim"), then "Upper Body" and "Lower Body", joined by ", ";
    // kNoWorkout when there is none. Both strength labels are decided by the upper-body A record's
    // first Chest set (property 106), the lower-body label included.
    static QString workoutText(const QString& aerobicName, const QString& upperAName, const QDate& today);
    // The items of the first meal slot, in slot order (not time order), that has an item still to
    // come at now; a meal at now's very minute is past. kNoMealsToday without a record for now's day,
    // kNoRemainingMeals when no slot has anything to come.
    static QString nextMealText(const QString& foodName, const QDateTime& now);
};
