#include "SetGrid.h"

#include "PageHeading.h"
#include "resource.h"

#include <QPainter>

SetGrid::SetGrid(PageHost& host, QWidget* parent) : Page(host, IDD_SETGRID, QStringLiteral("SetGrid"), parent) {}

void SetGrid::openGroup(const QDate& date, int groupCode) {
    m_date = date;
    m_groupCode = groupCode;
}

void SetGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    PageHeading::paint(painter, *this, m_groupCode < 1200 ? IDB_UPPERBODY : IDB_LOWERBODY, QStringLiteral("Sets"));
}
