// The registry in the object store: absent keys and values, and the two value types as they are
// stored. Reading them back through the program's buffer is the registry helper's test.

#include "Registry.h"
#include "SqlReader.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
const QString kKey = QStringLiteral("Software\\Orn\\Kovalin");
const QString kStoredKey = QStringLiteral("HKEY_CURRENT_USER\\Software\\Orn\\Kovalin");

// UTF-16LE with the terminating zero, as a caller of RegSetValueExW passes a string.
QByteArray utf16(const QString& text) {
    QByteArray bytes;
    for (QChar c : text + QChar(0)) {
        bytes.append(static_cast<char>(c.unicode() & 0xFF));
        bytes.append(static_cast<char>(c.unicode() >> 8));
    }
    return bytes;
}

class RegistryTest : public ::testing::Test {
protected:
    HKEY createKey(const QString& path) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, &key), ERROR_SUCCESS);
        return key;
    }

    static LONG setDword(HKEY key, const QString& name, DWORD value) {
        return RegSetValueExW(key, name, REG_DWORD, reinterpret_cast<const BYTE*>(&value), 4);
    }

    static LONG setString(HKEY key, const QString& name, const QString& text) {
        const QByteArray bytes = utf16(text);
        return RegSetValueExW(key, name, REG_SZ, reinterpret_cast<const BYTE*>(bytes.constData()),
                              static_cast<DWORD>(bytes.size()));
    }

    TestDevice m_device;
};
} // namespace

TEST_F(RegistryTest, AbsentKeysAndValuesAreNotFound) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kKey, &key), ERROR_FILE_NOT_FOUND);

    key = createKey(kKey);
    DWORD type = 0;
    DWORD size = 4;
    BYTE data[4];
    EXPECT_EQ(RegQueryValueExW(key, "PullWt", &type, data, &size), ERROR_FILE_NOT_FOUND);
    RegCloseKey(key);
}

TEST_F(RegistryTest, DwordsAndStringsAreStoredAsIntegerAndText) {
    HKEY key = createKey(kKey);
    ASSERT_EQ(setDword(key, "PullWt", 0x01020304), ERROR_SUCCESS);
    ASSERT_EQ(setString(key, "LastUser", "Ann"), ERROR_SUCCESS);
    ASSERT_EQ(setDword(key, "PullWt", 0xFFFFFFFF), ERROR_SUCCESS);

    SqlReader sql(m_device.paths().objectStore());
    const QString where = " FROM registry WHERE key = ? AND name = ?";
    EXPECT_EQ(sql.value("SELECT type" + where, {kStoredKey, "PullWt"}).toLongLong(), 4);
    EXPECT_EQ(sql.value("SELECT value" + where, {kStoredKey, "PullWt"}).toLongLong(), 4294967295);
    EXPECT_EQ(sql.typeOf("SELECT value" + where, {kStoredKey, "PullWt"}), "integer");
    EXPECT_EQ(sql.value("SELECT type" + where, {kStoredKey, "LastUser"}).toLongLong(), 1);
    EXPECT_EQ(sql.value("SELECT value" + where, {kStoredKey, "LastUser"}).toString(), "Ann");
    EXPECT_EQ(sql.value("SELECT count(*) FROM registry").toLongLong(), 2);

    RegCloseKey(key);
}
