#include "CsvCells.h"

#include "TimeConversion.h"

#include <algorithm>

const DbProp* CsvCells::find(const DbRecord& record, WORD number) {
    const std::vector<DbProp>& props = record.props();
    const auto found = std::lower_bound(props.begin(), props.end(), number,
                                        [](const DbProp& prop, WORD wanted) { return prop.number() < wanted; });
    return found != props.end() && found->number() == number ? &*found : nullptr;
}

LONG CsvCells::integer(const DbProp& prop) {
    switch (prop.type()) {
    case CEVT_I2:
    case CEVT_UI2:
        return static_cast<LONG>(prop.toInt() & 0xFFFF);
    default:
        return prop.toInt();
    }
}

QString CsvCells::value(const DbProp* prop) {
    if (prop == nullptr) {
        return {};
    }
    switch (prop->type()) {
    case CEVT_FILETIME:
        return date(prop->toFileTime());
    case CEVT_R8:
        return QString::number(prop->toDouble(), 'f', 2);
    case CEVT_I2:
    case CEVT_UI2:
    case CEVT_I4:
        return QString::number(integer(*prop));
    case CEVT_UI4:
        return QString::number(prop->toUInt());
    case CEVT_BOOL:
        return yesNo(prop);
    case CEVT_LPWSTR:
        return prop->toText();
    default:
        return {}; // a blob has no text form
    }
}

QString CsvCells::yesNo(const DbProp* prop) {
    if (prop == nullptr) {
        return {};
    }
    const bool one = prop->type() == CEVT_R8 ? prop->toDouble() == 1.0 : integer(*prop) == 1;
    return one ? QStringLiteral("True") : QStringLiteral("False");
}

QString CsvCells::startTime(const DbRecord& record, WORD hour, WORD minute, WORD second) {
    const DbProp* hours = find(record, hour);
    if (hours == nullptr) {
        return {};
    }
    const DbProp* minutes = find(record, minute);
    const DbProp* seconds = second != 0 ? find(record, second) : nullptr;
    return QStringLiteral("%1:%2:%3")
        .arg(integer(*hours))
        .arg(minutes != nullptr ? integer(*minutes) : 0)
        .arg(seconds != nullptr ? integer(*seconds) : 0);
}

QString CsvCells::timeOfDay(const DbProp* prop) {
    if (prop == nullptr) {
        return {};
    }
    if (prop->type() != CEVT_FILETIME) {
        return value(prop);
    }
    SYSTEMTIME time;
    const FILETIME stored = prop->toFileTime();
    if (!FileTimeToSystemTime(&stored, &time)) {
        return {};
    }
    return QStringLiteral("%1:%2").arg(time.wHour).arg(time.wMinute);
}

QString CsvCells::date(const FILETIME& time) {
    SYSTEMTIME day;
    if (!FileTimeToSystemTime(&time, &day)) {
        return {};
    }
    return QStringLiteral("%1/%2/%3").arg(day.wMonth).arg(day.wDay).arg(day.wYear);
}
