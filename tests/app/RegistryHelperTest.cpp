#include "RegistryHelper.h"
#include "Settings.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
DWORD getDword(const QString& name) {
    return RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, name);
}
QString getString(const QString& name) {
    return RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, name);
}
} // namespace

TEST(RegistryHelperTest, AnAbsentKeyOrValueOrOneOfTheOtherTypeReadsAsZeroAndEmpty) {
    // Without the key both read as 0 and empty: the options' and the first start's tests.
    TestDevice device;
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kCkDate, 1);
    EXPECT_EQ(getDword(Settings::kPullWt), 0u);
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullWt, QStringLiteral("1"));
    EXPECT_EQ(getDword(Settings::kPullWt), 0u);
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, 65);
    EXPECT_EQ(getString(Settings::kLastUser), QString());
}

TEST(RegistryHelperTest, StoresDwordsAndStringsAndReadsStringsThroughA260ByteBuffer) {
    TestDevice device;
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullLast, 0xFFFFFFFFu);
    EXPECT_EQ(getDword(Settings::kPullLast), 0xFFFFFFFFu);

    // 129 characters and the terminator fill the 260 bytes exactly; one more no longer fits.
    const QString fits(129, QChar(u'x'));
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, fits);
    EXPECT_EQ(getString(Settings::kLastUser), fits);
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, fits + u'y');
    EXPECT_EQ(getString(Settings::kLastUser), QString());
}
