#include "Clock.h"

#include <gtest/gtest.h>

TEST(Clock, FixedTimeIsLocalAndSystemTimeUntilReleased) {
    Clock::setFixed(QDateTime(QDate(2003, 3, 9), QTime(23, 59, 58, 123)));
    SYSTEMTIME local;
    SYSTEMTIME system;
    GetLocalTime(&local);
    GetSystemTime(&system);
    EXPECT_EQ(local, (SYSTEMTIME{2003, 3, 0, 9, 23, 59, 58, 123})); // a Sunday
    EXPECT_EQ(system, local);

    Clock::setFixed(std::nullopt);
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = Clock::now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, QDateTime::currentDateTime());
}
