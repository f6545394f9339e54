#pragma once
// One of the 29 measures the reports page charts, in the order of its drop-down: fourteen day values
// of the food-and-body record, the weight of one set of each of the twelve muscle groups, the aerobic
// distance per day and per week, and the workouts per week.

#include "MuscleGroup.h"

#include <QString>
#include <QStringList>

#include <optional>

class FoodDayValues;

class ReportMeasure {
public:
    enum class Kind { FoodValue, WeightPerSet, AerobicDistancePerDay, AerobicDistancePerWeek, WorkoutsPerWeek };

    static constexpr int kCount = 29;
    static constexpr int kFirstWeightPerSet = 14;
    static constexpr int kWeightPerSetCount = 12;

    // The drop-down's items, in order.
    static const QStringList& names();
    // The measure at index; std::nullopt outside 0-28.
    static std::optional<ReportMeasure> of(int index);

    int index() const { return m_index; }
    QString name() const { return names().at(m_index); }
    Kind kind() const;
    bool isWeightPerSet() const { return kind() == Kind::WeightPerSet; }
    // The two measures whose points are weeks rather than days.
    bool isPerWeek() const { return kind() == Kind::AerobicDistancePerWeek || kind() == Kind::WorkoutsPerWeek; }

    // A food measure's property numbers: its own, and for sleep quality also the overall feeling,
    // without which a day's sleep quality reads as 0.
    std::vector<WORD> foodNumbers() const;
    // A food measure's value in a day's values; 0 (no point) for a rating with no choice.
    double foodValue(const FoodDayValues& values) const;
    // A weight-per-set measure's muscle group: upper body for the first six, lower body for the rest.
    MuscleGroup group() const;

private:
    explicit ReportMeasure(int index) : m_index(index) {}

    int m_index;
};
