#include "NavigationBar.h"

#include "Bitmaps.h"
#include "Clock.h"
#include "DeviceFonts.h"
#include "TimeFormat.h"
#include "resource.h"

#include <QLinearGradient>
#include <QPainter>

namespace {
const QColor kTop(0x2A, 0x5C, 0xC8);
const QColor kBottom(0x0A, 0x2A, 0x84);
} // namespace

NavigationBar::NavigationBar(QWidget* parent) : QWidget(parent), m_title(QStringLiteral("Kovalin")) {
    setObjectName(QStringLiteral("NavigationBar"));
    setFixedHeight(kHeight);
    m_tick.setSingleShot(true);
    connect(&m_tick, &QTimer::timeout, this, [this] {
        update();
        scheduleTick();
    });
    scheduleTick();
}

void NavigationBar::setTitle(const QString& title) {
    m_title = title;
    update();
}

QString NavigationBar::clockText() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return GetTimeFormatW(TIME_NOSECONDS, &now);
}

void NavigationBar::scheduleTick() {
    // Wake at the start of the next minute, when the clock's text changes.
    const QTime now = QTime::currentTime();
    m_tick.start(60000 - (now.second() * 1000 + now.msec()) + 50);
}

void NavigationBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, kTop);
    gradient.setColorAt(1, kBottom);
    painter.fillRect(rect(), gradient);

    const QPixmap icon = Bitmaps::icon(IDR_MAINFRAME).pixmap(16, 16);
    painter.drawPixmap(5, (height() - 16) / 2, icon);

    painter.setPen(Qt::white);
    const QString clock = clockText();
    painter.setFont(DeviceFonts::tahoma(13));
    const int clockWidth = painter.fontMetrics().horizontalAdvance(clock);
    const QRect clockRect(width() - clockWidth - 6, 0, clockWidth, height());
    painter.drawText(clockRect, Qt::AlignVCenter | Qt::AlignRight, clock);

    painter.setFont(DeviceFonts::tahoma(15, true));
    const QRect titleRect(27, 0, clockRect.left() - 27 - 4, height());
    painter.drawText(titleRect, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(m_title, Qt::ElideRight, titleRect.width()));
}
