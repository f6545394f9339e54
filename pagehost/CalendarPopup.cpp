#include "CalendarPopup.h"

#include "ScreenPlacement.h"

#include <QCalendarWidget>
#include <QVBoxLayout>

CalendarPopup::CalendarPopup(QWidget* owner)
    : QFrame(owner, Qt::Popup), m_owner(owner), m_calendar(new QCalendarWidget(this)) {
    setObjectName(QStringLiteral("CalendarPopup"));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(1);
    // Opaque white: nothing of the page shows through.
    setAutoFillBackground(true);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_calendar);
    m_calendar->setFirstDayOfWeek(Qt::Sunday);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    m_calendar->setMinimumDate(QDate(1601, 1, 1));
    m_calendar->setMaximumDate(QDate(9999, 12, 31));
    setFixedSize(kWidth, kHeight);
    connect(m_calendar, &QCalendarWidget::clicked, this, [this](const QDate& date) {
        hide();
        emit picked(date);
    });
    connect(m_calendar, &QCalendarWidget::activated, this, [this](const QDate& date) {
        hide();
        emit picked(date);
    });
}

void CalendarPopup::popUp(const QDate& date) {
    m_calendar->setSelectedDate(date);
    m_calendar->setCurrentPage(date.year(), date.month());
    const QRect anchor(m_owner->mapToGlobal(QPoint(0, 0)), m_owner->size());
    // The geometry, not the frame's position: a pop-up must land exactly where it was placed.
    setGeometry(ScreenPlacement::nextTo(anchor, size(), ScreenPlacement::workAreaOf(m_owner)));
    show();
    m_calendar->setFocus(Qt::PopupFocusReason);
}
