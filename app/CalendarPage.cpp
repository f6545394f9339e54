#include "CalendarPage.h"

#include "PageHeading.h"
#include "resource.h"

#include <QPainter>

CalendarPage::CalendarPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_CALENDAR, QStringLiteral("CalendarPage"), parent) {}

void CalendarPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PageHeading::paint(painter, *this, IDB_CALENDAR, QStringLiteral("Calendar"));
}
