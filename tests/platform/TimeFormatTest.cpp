#include "TimeFormat.h"

#include <gtest/gtest.h>

namespace {
SYSTEMTIME at(int hour, int minute, int second, int millisecond = 0) {
    // The date fields are nonsense on purpose: a time picture ignores them.
    return SYSTEMTIME{2003,
                      60,
                      9,
                      0,
                      static_cast<WORD>(hour),
                      static_cast<WORD>(minute),
                      static_cast<WORD>(second),
                      static_cast<WORD>(millisecond)};
}
} // namespace

TEST(TimeFormat, PicturesFlagsAndTheTwelveHourClock) {
    struct Case {
        SYSTEMTIME time;
        const char* picture;
        DWORD flags;
        const char* expected;
    };
    const Case cases[] = {
        {at(14, 5, 3), "h hh m mm s ss t tt", 0, "2 02 5 05 3 03 P PM"},
        {at(8, 56, 13), "", 0, "8:56:13 AM"},
        {at(13, 5, 0), "h:mmt", 0, "1:05P"},
        {at(0, 0, 0), "h/hh t", 0, "12/12 A"},
        {at(11, 59, 59, 999), "h:mm:ss t", 0, "11:59:59 A"},
        {at(12, 0, 0), "h/hh t", 0, "12/12 P"},
        {at(23, 59, 0), "h tt", 0, "11 PM"},
        // Without seconds their separator goes too; a space stays.
        {at(8, 56, 13), "", TIME_NOSECONDS, "8:56 AM"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(GetTimeFormatW(each.flags, &each.time, each.picture), each.expected) << each.picture;
    }
}
