#include "TimeControl.h"

namespace {
enum { kHour, kMinute, kLast };
}

TimeControl::TimeControl(Picture picture, QWidget* parent) : FieldEdit(parent), m_picture(picture) {
    if (picture == Picture::TimeOfDay) {
        setFields({{1, 12, 2, false, {}}, {0, 59, 2, true, {}}, {0, 1, 1, false, {"AM", "PM"}}},
                  {QStringLiteral(":"), QStringLiteral(" ")});
    } else {
        setFields({{0, 23, 2, true, {}}, {0, 59, 2, true, {}}, {0, 59, 2, true, {}}},
                  {QStringLiteral(":"), QStringLiteral(":")});
    }
    setTime(QTime(0, 0));
}

void TimeControl::setDateTime(const QDateTime& value) {
    m_value = value;
    showValues(fieldsOf(value.time()));
}

void TimeControl::setTime(const QTime& time) {
    setDateTime(QDateTime(m_value.isValid() ? m_value.date() : QDate(1998, 11, 29), time));
}

std::vector<int> TimeControl::fieldsOf(const QTime& time) const {
    if (m_picture == Picture::Span) {
        return {time.hour(), time.minute(), time.second()};
    }
    const int hour12 = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return {hour12, time.minute(), time.hour() < 12 ? 0 : 1};
}

bool TimeControl::accept(std::vector<int>& draft) {
    QTime time;
    if (m_picture == Picture::Span) {
        time = QTime(draft[kHour], draft[kMinute], draft[kLast]);
    } else {
        // Typing keeps the hour within 1..12; "0" alone reads as 12, as the clock shows midnight and noon.
        const int hour12 = draft[kHour] == 0 ? 12 : draft[kHour];
        time = QTime(hour12 % 12 + 12 * draft[kLast], draft[kMinute]);
    }
    if (!time.isValid()) {
        return false;
    }
    m_value.setTime(time);
    draft = fieldsOf(time);
    emit timeChanged(m_value);
    return true;
}
