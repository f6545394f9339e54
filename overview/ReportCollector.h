#pragma once
// Collects a report: for each day of the period, in date order, the day's record is sought by its
// day key in the log of the measure, and a day without a record, or whose value is absent or zero,
// gives no point. The per-week measures add up whole weeks of seven days counted back from today.
// Plain reading: no widget, nothing written, nothing shown.
//
// What each measure reads:
//   the fourteen food measures   the day's food-and-body value, read as the food page reads it
//   "Wt <group>, Set #"          the weight of the chosen set of the group, when the set holds an
//                                exercise (the chosen one, when one is chosen)
//   "Aerobic Dist Per Day/Week"  the distances of the day's three aerobic exercises added up
//   "Workouts Per Week"          per day: one workout for each body region with a set recorded (one
//                                for both when they count as one), plus each aerobic exercise

#include "DatabaseCatalogue.h"
#include "Report.h"
#include "ReportChoice.h"

#include <QDate>
#include <QStringList>

#include <array>

class MuscleGroup;

class ReportCollector {
public:
    // The current user's six logs, in the order the main window keeps their names.
    explicit ReportCollector(std::array<QString, kUserDatabaseCount> databaseNames);

    // The report of choice over the period that ends with today.
    Report collect(const ReportChoice& choice, const QDate& today) const;

    // The group's exercise list, in the list's order; empty when the list does not exist (it is
    // never created here) or cannot be read.
    static QStringList exercises(const MuscleGroup& group);

private:
    QString name(UserDatabase which) const { return m_names[static_cast<size_t>(which)]; }

    std::array<QString, kUserDatabaseCount> m_names;
};
