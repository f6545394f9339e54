#include "TodayPage.h"

#include "PageHeading.h"
#include "PageHost.h"
#include "StartupNotices.h"
#include "resource.h"

#include <QPainter>

TodayPage::TodayPage(PageHost& host, QWidget* parent) : Page(host, IDD_TODAY, QStringLiteral("TodayPage"), parent) {}

void TodayPage::initDialog() {
    StartupNotices::show(host(), this);
}

void TodayPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PageHeading::paint(painter, *this, IDB_TODAY, QStringLiteral("Today"));
    painter.setPen(Qt::black);
    painter.drawText(QRect(8, PageHeading::kHeight + 6, width() - 16, 16), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("User: ") + host().GetUserName());
}
