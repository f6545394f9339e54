#include "Clock.h"

#include <gtest/gtest.h>

namespace {
struct FixedClockReset {
    ~FixedClockReset() { Clock::setFixed(std::nullopt); }
};
} // namespace

TEST(Clock, FixedTimeIsTheDevicesLocalAndSystemTime) {
    FixedClockReset reset;
    Clock::setFixed(QDateTime(QDate(2003, 3, 9), QTime(23, 59, 58, 123)));
    SYSTEMTIME local;
    SYSTEMTIME system;
    GetLocalTime(&local);
    GetSystemTime(&system);
    EXPECT_EQ(local, (SYSTEMTIME{2003, 3, 0, 9, 23, 59, 58, 123})); // a Sunday
    EXPECT_EQ(system, local);
    EXPECT_EQ(Clock::now(), QDateTime(QDate(2003, 3, 9), QTime(23, 59, 58, 123)));
}

TEST(Clock, FollowsTheHostWhenNotFixed) {
    FixedClockReset reset;
    Clock::setFixed(QDateTime(QDate(1999, 1, 1), QTime(0, 0)));
    Clock::setFixed(std::nullopt);
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = Clock::now();
    const QDateTime after = QDateTime::currentDateTime();
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
}
