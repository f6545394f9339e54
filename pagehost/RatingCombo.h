#pragma once
// The 0-10 drop-down of the pages (intensity, sleep quality, feeling): items "0" to "10", or no
// choice at all, which the platform reports as the selection -1.

#include "DeviceCombo.h"

class RatingCombo : public DeviceCombo {
    Q_OBJECT
public:
    static constexpr int kNoChoice = -1;

    explicit RatingCombo(QWidget* parent);

    // 0 to 10, or kNoChoice.
    int rating() const { return currentIndex(); }
    // A value outside 0..10 shows no choice.
    void setRating(int rating);
};
