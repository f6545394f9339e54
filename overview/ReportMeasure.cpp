#include "ReportMeasure.h"

#include "FoodDayValues.h"

namespace {
enum FoodMeasure {
    BodyWeight,
    BodyFat,
    WaterIntake,
    Sleep,
    SleepQuality,
    OverallFeeling,
    Systolic,
    Diastolic,
    RestingHeartRate,
    Chest,
    Biceps,
    Waist,
    Quads,
    Calves
};

// Each food measure's property, in the drop-down's order.
constexpr WORD kFoodNumbers[ReportMeasure::kFirstWeightPerSet] = {
    FoodDayValues::kWeight,   FoodDayValues::kBodyFat,      FoodDayValues::kWater,
    FoodDayValues::kSleep,    FoodDayValues::kSleepQuality, FoodDayValues::kOverall,
    FoodDayValues::kSystolic, FoodDayValues::kDiastolic,    FoodDayValues::kRestingHeartRate,
    FoodDayValues::kChest,    FoodDayValues::kBiceps,       FoodDayValues::kWaist,
    FoodDayValues::kQuads,    FoodDayValues::kCalves};

// The ratings are indexes 0-10 of a list; anything else (the all-ones "no choice") is no value.
constexpr int kHighestRating = 10;

double rating(int value) {
    return value <= kHighestRating ? value : 0.0;
}
} // namespace

const QStringList& ReportMeasure::names() {
    static const QStringList kNames = {"Body Weight",          "Body Fat",
                                       "Water Intake",         "Sleep",
                                       "Sleep Quality",        "Overall Feeling",
                                       "Systolic BP",          "Diastolic BP",
                                       "Resting HR",           "Measurement - Chest",
                                       "Measurement - Biceps", "Measurement - Waist",
                                       "Measurement - Quads",  "Measurement - Calves",
                                       "Wt Chest, Set #",      "Wt Shldrs, Set #",
                                       "Wt Back, Set #",       "Wt Triceps, Set #",
                                       "Wt Biceps, Set #",     "Wt Misc, Set #",
                                       "Wt Quads, Set #",      "Wt Hamstr, Set #",
                                       "Wt Calves, Set #",     "Wt Abs, Set #",
                                       "Wt Misc1, Set #",      "Wt Misc2, Set #",
                                       "Aerobic Dist Per Day", "Aerobic Dist Per Week",
                                       "Workouts Per Week"};
    return kNames;
}

std::optional<ReportMeasure> ReportMeasure::of(int index) {
    if (index < 0 || index >= kCount) {
        return std::nullopt;
    }
    return ReportMeasure(index);
}

ReportMeasure::Kind ReportMeasure::kind() const {
    if (m_index < kFirstWeightPerSet) {
        return Kind::FoodValue;
    }
    if (m_index < kFirstWeightPerSet + kWeightPerSetCount) {
        return Kind::WeightPerSet;
    }
    static constexpr Kind kLast[] = {Kind::AerobicDistancePerDay, Kind::AerobicDistancePerWeek, Kind::WorkoutsPerWeek};
    return kLast[m_index - kFirstWeightPerSet - kWeightPerSetCount];
}

std::vector<WORD> ReportMeasure::foodNumbers() const {
    if (kind() != Kind::FoodValue) {
        return {};
    }
    if (m_index == SleepQuality) {
        return {FoodDayValues::kOverall, FoodDayValues::kSleepQuality};
    }
    return {kFoodNumbers[m_index]};
}

double ReportMeasure::foodValue(const FoodDayValues& values) const {
    switch (m_index) {
    case BodyWeight:
        return values.weight;
    case BodyFat:
        return values.bodyFat;
    case WaterIntake:
        return values.water;
    case Sleep:
        return values.sleep;
    case SleepQuality:
        return rating(values.sleepQuality);
    case OverallFeeling:
        return rating(values.overall);
    case Systolic:
        return values.systolic;
    case Diastolic:
        return values.diastolic;
    case RestingHeartRate:
        return values.restingHeartRate;
    case Chest:
        return values.chest;
    case Biceps:
        return values.biceps;
    case Waist:
        return values.waist;
    case Quads:
        return values.quads;
    case Calves:
        return values.calves;
    default:
        return 0.0;
    }
}

MuscleGroup ReportMeasure::group() const {
    const int g = m_index - kFirstWeightPerSet;
    return g < MuscleGroup::kGroupsPerRegion ? MuscleGroup(BodyRegion::Upper, g)
                                             : MuscleGroup(BodyRegion::Lower, g - MuscleGroup::kGroupsPerRegion);
}
