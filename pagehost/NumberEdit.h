#pragma once
// The number edit of the pages: an integer or a decimal within a range, typed freely and checked
// when it is finished (Enter, or leaving the edit) with the platform's range messages. A refused
// entry changes nothing: the message is shown, the last accepted value comes back and the edit keeps
// (or takes back) the focus. An empty
// edit means 0 once it is left, when 0 is in the range. The whole value is shown; a narrow edit
// shows the start of its text when not focused.

#include "RangeCheck.h"

#include <QLineEdit>

class NumberEdit : public QLineEdit {
    Q_OBJECT
public:
    NumberEdit(RangeCheck::Kind kind, double minimum, double maximum, QWidget* parent);

    // The last accepted value.
    double value() const { return m_value; }
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    // Shows value as the accepted one; nothing is emitted.
    void setValue(double value);
    // Takes what is typed: true when it is accepted (or unchanged), false when refused.
    bool commit();
    // Sets value and takes it, as a step of the up-down does.
    void stepTo(double value);
    // How the value shows: whole numbers without decimals, others as stored ("157.5", "102.25").
    static QString textOf(double value);

signals:
    // An accepted value that differs from the one before.
    void valueChanged(double value);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void display(double value);

    RangeCheck::Kind m_kind;
    double m_minimum;
    double m_maximum;
    double m_value = 0;
    bool m_committing = false;
};
