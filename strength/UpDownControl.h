#pragma once
// An up-down control with a buddy edit, as the platform's: its arrows step the number in the buddy
// by one, within a range, and stop at its ends. The buddy holds the number as text; the arrows step
// its whole part.

#include <QWidget>

class QLineEdit;
class QToolButton;

class UpDownControl : public QWidget {
    Q_OBJECT
public:
    UpDownControl(QLineEdit* buddy, int minimum, int maximum, QWidget* parent);

    // Steps the buddy's number by steps, kept within the range.
    void stepBy(int steps);
    QToolButton* upButton() const { return m_up; }
    QToolButton* downButton() const { return m_down; }

private:
    QLineEdit* m_buddy;
    int m_minimum;
    int m_maximum;
    QToolButton* m_up = nullptr;
    QToolButton* m_down = nullptr;
};
