#pragma once
// The calendar page (dialog 182, tab 6): a month marking the days on which each kind of training was
// logged.

#include "Page.h"

class CalendarPage : public Page {
public:
    CalendarPage(PageHost& host, QWidget* parent);

    void setDate(const QDate& date) override { m_date = date; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QDate m_date;
};
