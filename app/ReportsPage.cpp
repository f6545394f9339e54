#include "ReportsPage.h"

#include "PageHeading.h"
#include "resource.h"

#include <QPainter>

ReportsPage::ReportsPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_REPORTS, QStringLiteral("ReportsPage"), parent) {}

void ReportsPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PageHeading::paint(painter, *this, IDB_REPORTS, QStringLiteral("Reports"));
}
