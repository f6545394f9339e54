#include "Clock.h"

namespace {
std::optional<QDateTime>& fixedTime() {
    static std::optional<QDateTime> time;
    return time;
}
} // namespace

QDateTime Clock::now() {
    return fixedTime().value_or(QDateTime::currentDateTime());
}

void Clock::setFixed(std::optional<QDateTime> time) {
    fixedTime() = std::move(time);
}

void GetLocalTime(SYSTEMTIME* st) {
    if (st == nullptr) {
        return;
    }
    const QDateTime now = Clock::now();
    const QDate date = now.date();
    const QTime time = now.time();
    st->wYear = static_cast<WORD>(date.year());
    st->wMonth = static_cast<WORD>(date.month());
    // QDate numbers Monday 1 to Sunday 7; the platform numbers Sunday 0 to Saturday 6.
    st->wDayOfWeek = static_cast<WORD>(date.dayOfWeek() % 7);
    st->wDay = static_cast<WORD>(date.day());
    st->wHour = static_cast<WORD>(time.hour());
    st->wMinute = static_cast<WORD>(time.minute());
    st->wSecond = static_cast<WORD>(time.second());
    st->wMilliseconds = static_cast<WORD>(time.msec());
}
