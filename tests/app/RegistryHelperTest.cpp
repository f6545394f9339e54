#include "RegistryHelper.h"
#include "Settings.h"
#include "SqlReader.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
const QString kStoredKey = QStringLiteral("HKEY_CURRENT_USER\\Software\\Orn\\Kovalin");

class RegistryHelperTest : public ::testing::Test {
protected:
    QVariant stored(const QString& column, const QString& name) const {
        SqlReader sql(m_device.paths().objectStore());
        return sql.value(QStringLiteral("SELECT %1 FROM registry WHERE key = ? AND name = ?").arg(column),
                         {kStoredKey, name});
    }
    TestDevice m_device;
};
} // namespace

TEST_F(RegistryHelperTest, AnAbsentKeyOrValueReadsAsZeroAndEmpty) {
    EXPECT_EQ(RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullWt), 0u);
    EXPECT_EQ(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser), QString());

    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kCkDate, 1);
    EXPECT_EQ(RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullWt), 0u);
    EXPECT_EQ(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser), QString());
}

TEST_F(RegistryHelperTest, StoresNumbersAsDwordsUnderTheProgramsKey) {
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kAsOne, 1);
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullLast, 0xFFFFFFFFu);
    EXPECT_EQ(RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kAsOne), 1u);
    EXPECT_EQ(RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullLast), 0xFFFFFFFFu);
    EXPECT_EQ(stored("type", Settings::kAsOne).toLongLong(), 4);
    EXPECT_EQ(stored("value", Settings::kAsOne).toLongLong(), 1);
    EXPECT_EQ(stored("value", Settings::kPullLast).toLongLong(), 0xFFFFFFFFll);
}

TEST_F(RegistryHelperTest, StoresTextAsAStringValue) {
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, QStringLiteral("Ann"));
    EXPECT_EQ(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser), "Ann");
    EXPECT_EQ(stored("type", Settings::kLastUser).toLongLong(), 1);
    EXPECT_EQ(stored("value", Settings::kLastUser).toString(), "Ann");

    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, QString());
    EXPECT_EQ(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser), QString());
    EXPECT_EQ(stored("value", Settings::kLastUser).toString(), QString());
}

TEST_F(RegistryHelperTest, ReadsStringsThroughA260ByteBuffer) {
    // 129 characters and the terminator fill the 260 bytes exactly; one more no longer fits.
    const QString fits(129, QChar(u'x'));
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, fits);
    EXPECT_EQ(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser), fits);
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, fits + u'y');
    EXPECT_EQ(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser), QString());
}

TEST_F(RegistryHelperTest, AValueOfTheOtherTypeReadsAsAbsent) {
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullWt, QStringLiteral("1"));
    EXPECT_EQ(RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullWt), 0u);
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, 65);
    EXPECT_EQ(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser), QString());
}
