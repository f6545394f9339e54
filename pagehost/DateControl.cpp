#include "DateControl.h"

#include "CalendarPopup.h"
#include "MessageBox.h"
#include "RangeCheck.h"

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>

namespace {
enum { kMonth, kDay, kYear };

QIcon dropDownArrow() {
    QPixmap arrow(9, 5);
    arrow.fill(Qt::transparent);
    QPainter painter(&arrow);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygon({QPoint(0, 0), QPoint(8, 0), QPoint(4, 4)}));
    return QIcon(arrow);
}

// Two digits typed for a year mean the nearest century's year, as the platform reads "24" (1930-2029).
int fullYear(int typed, int digits) {
    if (digits != 2) {
        return typed;
    }
    return typed < 30 ? 2000 + typed : 1900 + typed;
}
} // namespace

DateControl::DateControl(QWidget* parent) : FieldEdit(parent), m_popup(new CalendarPopup(this)) {
    setFields({{1, 12, 2, false, {}}, {1, 31, 2, false, {}}, {kFirstYear, kLastYear, 4, false, {}}},
              {QStringLiteral("/"), QStringLiteral("/")});
    QAction* arrow = addAction(dropDownArrow(), QLineEdit::TrailingPosition);
    arrow->setObjectName(QStringLiteral("calendarArrow"));
    arrow->setToolTip(QStringLiteral("Calendar"));
    connect(arrow, &QAction::triggered, this, &DateControl::showCalendar);
    connect(m_popup, &CalendarPopup::picked, this, &DateControl::picked);
}

QDate DateControl::date() const {
    const std::vector<int>& shown = shownValues();
    return QDate(shown[kYear], shown[kMonth], shown[kDay]);
}

void DateControl::setDate(const QDate& date) {
    showValues({date.month(), date.day(), date.year()});
}

void DateControl::showCalendar() {
    commit();
    m_popup->popUp(date());
}

void DateControl::picked(const QDate& date) {
    setFocus(Qt::PopupFocusReason);
    if (date != this->date()) {
        setDate(date);
        emit dateChanged(date);
    }
}

int DateControl::maximumOf(int field, const std::vector<int>& draft) const {
    if (field == kDay) {
        return QDate(draft[kYear], std::clamp(draft[kMonth], 1, 12), 1).daysInMonth();
    }
    return FieldEdit::maximumOf(field, draft);
}

bool DateControl::accept(std::vector<int>& draft) {
    draft[kYear] = fullYear(draft[kYear], typedWidth(kYear));
    struct Check {
        int field;
        int minimum;
        int maximum;
    };
    const Check checks[] = {{kYear, kFirstYear, kLastYear}, {kMonth, 1, 12}, {kDay, 1, maximumOf(kDay, draft)}};
    for (const Check& check : checks) {
        const int value = draft[static_cast<size_t>(check.field)];
        if (value < check.minimum || value > check.maximum) {
            MessageBoxW(this, RangeCheck::rangeMessage(RangeCheck::Kind::Integer, check.minimum, check.maximum),
                        QStringLiteral("Kovalin"), MB_OK | MB_ICONEXCLAMATION);
            return false;
        }
    }
    const QDate date(draft[kYear], draft[kMonth], draft[kDay]);
    // The value changes before the signal, so that a reader of date() sees the new day.
    setDate(date);
    emit dateChanged(date);
    return true;
}

void DateControl::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier))) {
        showCalendar();
        return;
    }
    FieldEdit::keyPressEvent(event);
}
