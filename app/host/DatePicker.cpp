#include "DatePicker.h"

#include <QCalendarWidget>
#include <QEvent>

#include <algorithm>

namespace {
constexpr int kCalendarWidth = 224;
constexpr int kCalendarHeight = 162;
} // namespace

DatePicker::DatePicker(QWidget* parent) : QDateEdit(parent) {
    setDisplayFormat(QStringLiteral("M/d/yyyy"));
    // A typed date counts once it is complete (Enter or leaving the field), not at every key.
    setKeyboardTracking(false);
    setCalendarPopup(true);
    auto* calendar = new QCalendarWidget(this);
    calendar->setFirstDayOfWeek(Qt::Sunday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    calendar->setFixedSize(kCalendarWidth, kCalendarHeight);
    setCalendarWidget(calendar);
    // The calendar's pop-up window exists from here on; it is placed again each time it shows.
    calendar->window()->installEventFilter(this);
}

bool DatePicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched == calendarWidget()->window()) {
        keepOnScreen(calendarWidget()->window());
    }
    return QDateEdit::eventFilter(watched, event);
}

void DatePicker::keepOnScreen(QWidget* popup) const {
    const QRect screen(window()->mapToGlobal(QPoint(0, 0)), window()->size());
    const QRect below(mapToGlobal(QPoint(0, height())), popup->size());
    QRect placed = below;
    placed.moveRight(std::min(below.right(), screen.right()));
    placed.moveLeft(std::max(placed.left(), screen.left()));
    if (placed.bottom() > screen.bottom()) {
        placed.moveBottom(mapToGlobal(QPoint(0, 0)).y() - 1);
    }
    popup->move(placed.topLeft());
}
