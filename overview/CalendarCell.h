#pragma once
// One square of the calendar's 7 x 6 grid: the day it shows, what was logged that day, and where
// it stands on the page.

#include <QRect>

struct CalendarCell {
    int month = 0;
    int year = 0;
    int lowerBody = 0;   // 1 when the day has a lower-body entry
    int upperBody = 0;   // 1 when the day has an upper-body entry
    int aerobic = 0;     // 1 when the day has an aerobic entry
    int entryCount = 0;  // how many of the three flags are set
    int shownNumber = 0; // drawn in red in the cell when above 0: the day's strength sets
    int day = 0;
    // Left, top, right, bottom; right and bottom lie outside the cell.
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    QRect rect() const { return QRect(QPoint(left, top), QPoint(right - 1, bottom - 1)); }
    bool contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};
