// The one-time conversion of the earlier release's upper-body log into the A/B pair.

#include "UpperBodyConversion.h"

#include "RegistryHelper.h"
#include "ScriptedMessageBoxes.h"
#include "Settings.h"
#include "SqlLogWriter.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
const QString kSource = QStringLiteral("Kov2UpperBody");
const QString kA = QStringLiteral("Kov2AUpperBody");
const QString kB = QStringLiteral("Kov2BUpperBody");
const QDate kFirst(2003, 5, 6), kHeld(2003, 5, 7), kSecond(2003, 5, 8);

SqlLogWriter::Prop text(int number, const QString& value) {
    return SqlLogWriter::text(number, value);
}

class UpperBodyConversionTest : public ::testing::Test {
protected:
    DWORD done() const { return RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, "UpConv"); }

    TestDevice m_device;
    ScriptedMessageBoxes m_boxes;
    SqlLogWriter m_sql{m_device.paths().objectStore()};
    StoredDays m_stored{m_device.paths().objectStore()};
};
} // namespace

TEST_F(UpperBodyConversionTest, SplitsEachDayIntoTheDefaultPairOnce) {
    // The source: the reference-day marker, a whole day, a day the pair holds, a day of B groups.
    m_sql.writeDay(kSource, QDate(1968, 11, 29), {});
    // clang-format off
    m_sql.writeDay(kSource, kFirst,
                   {{102, SqlLogWriter::kI2, 6}, {105, SqlLogWriter::kUI2, 1}, text(106, "Bench"),
                    {108, SqlLogWriter::kR8, 135.0}, text(305, "edge of A"), text(306, "Row"),
                    text(705, "last of B"), text(1132, "Felt good"), {1133, SqlLogWriter::kI2, 20}});
    // clang-format on
    m_sql.writeDay(kSource, kHeld, {text(106, "Old press")});
    m_sql.writeDay(kSource, kSecond, {text(511, "Curl")});
    m_sql.writeDay(kA, kHeld, {text(106, "New press")});

    UpperBodyConversion::runOnce();
    EXPECT_EQ(m_stored.props(kA, kFirst), "64:64,102:2,105:18,106:31,108:5,305:31,1132:31,1133:2");
    EXPECT_EQ(m_stored.props(kB, kFirst), "64:64,306:31,705:31");
    EXPECT_EQ(m_stored.value(kA, kFirst, 108, SqlLogWriter::kR8).toDouble(), 135.0);
    // A day of B groups only still gets an A record, so the strength page finds the day.
    EXPECT_EQ(m_stored.props(kA, kSecond), "64:64");
    EXPECT_EQ(m_stored.props(kB, kSecond), "64:64,511:31");
    // A day the pair already holds, in either database, is left as it is: nothing is added to the other.
    EXPECT_EQ(m_stored.value(kA, kHeld, 106, SqlLogWriter::kText).toString(), "New press");
    EXPECT_EQ(m_stored.props(kB, kHeld), "");
    EXPECT_EQ(m_stored.recordCount(kSource), 4);
    EXPECT_EQ(done(), 1u);
    EXPECT_TRUE(m_boxes.texts().isEmpty());

    // Done once: a day added to the source later is not taken.
    m_sql.writeDay(kSource, kFirst.addDays(10), {text(106, "Late")});
    UpperBodyConversion::runOnce();
    EXPECT_EQ(m_stored.props(kA, kFirst.addDays(10)), "");
}

TEST_F(UpperBodyConversionTest, AnUnreadableDayStopsTheRunWithNothingTakenAndItIsTriedAgainLater) {
    m_sql.writeDay(kSource, kFirst, {text(106, "Bench")});
    // A string property holding a number cannot be read.
    m_sql.writeDay(kSource, kSecond, {{106, SqlLogWriter::kText, 42}});
    UpperBodyConversion::runOnce();
    EXPECT_EQ(m_boxes.texts(), QStringList({UpperBodyConversion::kFailedText}));
    EXPECT_EQ(done(), 0u);
    // The day read before the failure is not kept: the conversion happens whole or not at all.
    EXPECT_EQ(m_stored.props(kA, kFirst), "");

    // The next run meets the same day, says so again and again takes nothing.
    UpperBodyConversion::runOnce();
    EXPECT_EQ(m_boxes.texts().size(), 2);
    EXPECT_EQ(m_stored.props(kA, kFirst), "");
}
