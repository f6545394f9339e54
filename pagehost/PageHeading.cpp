#include "PageHeading.h"

#include "Bitmaps.h"
#include "DeviceFonts.h"

#include <QPainter>
#include <QWidget>

void PageHeading::paint(QPainter& painter, const QWidget& page, int bitmapId, const QString& title) {
    painter.drawPixmap(6, (kHeight - 15) / 2 + 1, Bitmaps::masked(bitmapId));
    painter.setPen(QColor(0x0A, 0x2A, 0x84));
    painter.setFont(DeviceFonts::tahoma(16, true));
    painter.drawText(QRect(26, 0, page.width() - 30, kHeight), Qt::AlignVCenter | Qt::AlignLeft, title);
    painter.setPen(QColor(0x0A, 0x2A, 0x84));
    painter.drawLine(4, kHeight, page.width() - 5, kHeight);
}
