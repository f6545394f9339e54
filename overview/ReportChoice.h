#pragma once
// What the reports page's four drop-downs have chosen, and the setting that decides how a day's
// upper- and lower-body workouts are counted.

#include <QString>

struct ReportChoice {
    // Index into the measures (0-28) and the periods (0-3).
    int measure = 0;
    int period = 0;
    // The set (1-12) whose weight the weight-per-set measures chart.
    int set = 1;
    // The exercise that set must hold for a day to count; empty for any exercise.
    QString exercise;
    // An upper- and a lower-body workout on one day count as one workout (the AsOne setting).
    bool workoutsAsOne = true;
};
