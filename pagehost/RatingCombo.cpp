#include "RatingCombo.h"

RatingCombo::RatingCombo(QWidget* parent) : DeviceCombo(false, parent) {
    for (int value = 0; value <= 10; ++value) {
        addItem(QString::number(value));
    }
    setMaxVisibleItems(11);
}

void RatingCombo::setRating(int rating) {
    setCurrentIndex(rating >= 0 && rating < count() ? rating : kNoChoice);
}
