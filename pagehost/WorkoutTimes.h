#pragma once
// The times of one day's strength workout, handed from one strength page to the other when an
// upper- and a lower-body workout on the same day count as one workout.

#include "BodyRegion.h"

#include <QDateTime>
#include <QTime>

struct WorkoutTimes {
    QDateTime start;
    QDateTime end;
    QTime elapsed; // hours, minutes and seconds of the elapsed span
    bool completed = false;
};
