#include "AerobicLogPage.h"

#include "PageHeading.h"
#include "resource.h"

#include <QPainter>

AerobicLogPage::AerobicLogPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_AEROBIC, QStringLiteral("AerobicLogPage"), parent) {}

void AerobicLogPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PageHeading::paint(painter, *this, IDB_AEROBIC, QStringLiteral("Aerobic"));
}
