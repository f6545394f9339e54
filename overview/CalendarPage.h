#pragma once
// The calendar page (dialog 182, tab 6): one month as six weeks of days, Sunday first, each day
// marked with the kinds of training logged on it. The buttons 1002, 1004 and 1003 along the top edge
// show the previous, the current and the next month. Tapping a marked day opens its log: straight
// away when it has one kind of entry, through a pop-up of the kinds when it has more. The month is
// read from the logs at every drawing; the page stores nothing.

#include "CalendarMonth.h"
#include "Page.h"

#include <QPixmap>

class QPushButton;

class CalendarPage : public Page {
public:
    static inline const QString kUpperBody = QStringLiteral("Upper Body");
    static inline const QString kLowerBody = QStringLiteral("Lower Body");
    static inline const QString kAerobic = QStringLiteral("Aerobic");

    CalendarPage(PageHost& host, QWidget* parent);

    // Shows the month of date.
    void setDate(const QDate& date) override;
    void reload() override { update(); }

    // The month as last drawn.
    const CalendarMonth& month() const { return m_month; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QPushButton* addButton(int id, const QString& text, int left, int width);
    void showPrevious();
    void showCurrent();
    void showNext();
    // Moves the target page (1 upper body, 2 lower body, 3 aerobic) to the cell's day and shows it.
    void jump(const CalendarCell& cell, int tab);
    TrainingMarks::Names logNames() const;
    void drawPage(QPainter& painter) const;

    CalendarMonth m_month;
    // The marks of the shown month's days and of the neighbouring months', decoded once.
    QPixmap m_marks[2][3];
};
