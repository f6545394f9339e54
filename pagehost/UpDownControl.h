#pragma once
// An up-down control with a buddy number edit, as the platform's: its arrows step a position
// within a range and stop at its ends, and the buddy shows position / divisor (a divisor of 10
// steps tenths). The position is read from the buddy's whole number of steps first, so typing
// 157.5 and pressing up gives 158.

#include <QWidget>

class NumberEdit;
class QToolButton;

class UpDownControl : public QWidget {
    Q_OBJECT
public:
    UpDownControl(NumberEdit* buddy, int minimum, int maximum, QWidget* parent, int divisor = 1);

    // Steps the buddy's value by steps, kept within the range.
    void stepBy(int steps);
    QToolButton* upButton() const { return m_up; }
    QToolButton* downButton() const { return m_down; }

private:
    NumberEdit* m_buddy;
    int m_minimum;
    int m_maximum;
    int m_divisor;
    QToolButton* m_up = nullptr;
    QToolButton* m_down = nullptr;
};
