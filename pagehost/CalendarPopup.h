#pragma once
// The month calendar that drops down under a date control: bordered, white, sized for the device's
// screen and kept on it (a pop-up is otherwise placed against the desktop's screen, where it would
// run off the device's right edge).

#include <QDate>
#include <QFrame>

class QCalendarWidget;

class CalendarPopup : public QFrame {
    Q_OBJECT
public:
    static constexpr int kWidth = 226;
    static constexpr int kHeight = 164;

    explicit CalendarPopup(QWidget* owner);

    QCalendarWidget* calendar() const { return m_calendar; }
    // Shows date's month under owner (above it when there is no room below), on owner's screen.
    void popUp(const QDate& date);

signals:
    void picked(const QDate& date);

private:
    QWidget* m_owner;
    QCalendarWidget* m_calendar;
};
