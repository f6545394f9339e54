#include "TodayTaps.h"

#include "TodaySummary.h"

TodayTaps::Target TodayTaps::at(const QPoint& point, const QString& workoutText) {
    if (workoutBox().contains(point)) {
        if (workoutText.isEmpty() || workoutText == TodaySummary::kNoWorkout) {
            return Target::None;
        }
        const QChar first = workoutText.front();
        return first == u'U' ? Target::UpperBody : first == u'L' ? Target::LowerBody : Target::Aerobic;
    }
    if (mealBox().contains(point)) {
        return Target::Food;
    }
    return goalsBox().contains(point) ? Target::Goals : Target::None;
}

int TodayTaps::tabOf(Target target) {
    switch (target) {
    case Target::UpperBody:
        return 1;
    case Target::LowerBody:
        return 2;
    case Target::Aerobic:
        return 3;
    case Target::Food:
        return 4;
    case Target::None:
    case Target::Goals:
        break;
    }
    return -1;
}
