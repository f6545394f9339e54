#pragma once
// Where a stylus tap on the Today page leads: the three boxes and the page each opens.

#include <QPoint>
#include <QRect>
#include <QString>

class TodayTaps {
public:
    enum class Target { None, UpperBody, LowerBody, Aerobic, Food, Goals };

    // The boxes in page pixels, as (left, top, right, bottom) with right and bottom outside.
    static QRect workoutBox() { return box(2, 56, 229, 90); }
    static QRect mealBox() { return box(4, 109, 217, 141); }
    static QRect goalsBox() { return box(3, 149, 217, 211); }

    // The target of a tap at point while the workout box shows workoutText. The workout box leads
    // nowhere while it is empty or says there is no workout; otherwise its first letter decides:
    // "U" the upper body, "L" the lower body, anything else the aerobic page (so an aerobic exercise
    // named "Lunges" opens the lower body).
    static Target at(const QPoint& point, const QString& workoutText);
    // The tab a target selects: 1 upper body, 2 lower body, 3 aerobic, 4 food; -1 for the others.
    static int tabOf(Target target);

private:
    static QRect box(int left, int top, int right, int bottom) {
        return QRect(QPoint(left, top), QPoint(right - 1, bottom - 1));
    }
};
