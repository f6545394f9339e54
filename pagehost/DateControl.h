#pragma once
// The date control of the pages: a date shown as "3/14/2024", typed field by field (see FieldEdit)
// or picked from a month calendar that drops down from the arrow at its right (or Alt+Down, F4).
// A typed date takes effect once, when it is complete: on Enter or on leaving the control; a pick
// takes effect at once. A day past its month's end or a year the device cannot hold is refused
// with the platform's range message and nothing changes.

#include "FieldEdit.h"

#include <QDate>

class CalendarPopup;

class DateControl : public FieldEdit {
    Q_OBJECT
public:
    static constexpr int kFirstYear = 1601;
    static constexpr int kLastYear = 9999;

    explicit DateControl(QWidget* parent);

    QDate date() const;
    // Shows date; nothing is emitted.
    void setDate(const QDate& date);
    CalendarPopup* calendarPopup() const { return m_popup; }
    void showCalendar();

signals:
    // A new date took effect (typed and finished, or picked).
    void dateChanged(const QDate& date);

protected:
    int maximumOf(int field, const std::vector<int>& draft) const override;
    bool accept(std::vector<int>& draft) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void picked(const QDate& date);

    CalendarPopup* m_popup;
};
