#include "AnsiText.h"

#include <QByteArray>
#include <QStringDecoder>

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

namespace {
struct Converted {
    QByteArray bytes;
    BOOL usedDefault = 7;
};

// Converts text (no terminator) into a generous buffer.
Converted convert(const std::u16string& text, DWORD flags = 0, const char* defaultChar = nullptr) {
    Converted out;
    char buffer[64];
    const int n = WideCharToMultiByte(CP_ACP, flags, text.data(), static_cast<int>(text.size()), buffer, 64,
                                      defaultChar, &out.usedDefault);
    out.bytes = QByteArray(buffer, n);
    return out;
}
} // namespace

// Over every UTF-16 code unit: 251 bytes are produced (all but the five undefined ones), each by
// exactly one unit, and each decodes back to that unit in Windows-1252.
TEST(AnsiText, EveryCodeUnitMapsToItsOwnByteOrToTheDefault) {
    QStringDecoder decoder("windows-1252");
    ASSERT_TRUE(decoder.isValid());
    std::set<unsigned char> produced;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto wide = static_cast<char16_t>(unit);
        char byte = 0;
        BOOL usedDefault = FALSE;
        ASSERT_EQ(WideCharToMultiByte(CP_1252, 0, &wide, 1, &byte, 1, "\x01", &usedDefault), 1);
        if (usedDefault) {
            ASSERT_EQ(byte, '\x01');
            continue;
        }
        ASSERT_TRUE(produced.insert(static_cast<unsigned char>(byte)).second) << std::hex << unit;
        ASSERT_EQ(decoder.decode(QByteArray(1, byte)), QString(QChar(wide))) << std::hex << unit;
    }
    EXPECT_EQ(produced.size(), 251u);
    for (unsigned char undefined : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
        EXPECT_EQ(produced.count(undefined), 0u);
    }
}

TEST(AnsiText, WhatDoesNotFitBecomesTheDefaultOnePerCodeUnit) {
    const Converted arrow = convert(u"a\u2192b\u0100\u4E2D");
    EXPECT_EQ(arrow.bytes, "a?b??");
    EXPECT_EQ(arrow.usedDefault, TRUE);
    EXPECT_EQ(convert(u"Curl \"3x10\" \u00E9\u20AC\u0178").usedDefault, FALSE);
    EXPECT_EQ(convert(u"a\u2192b", 0, "*").bytes, "a*b");
    EXPECT_EQ(convert(u"x\U0001F600y").bytes, "x??y"); // a surrogate pair is two code units
}

TEST(AnsiText, CompositeCheckJoinsLetterAndAccent) {
    const Converted joined = convert(u"Cafe\u0301 n\u0303 u\u0308 A\u030A", WC_COMPOSITECHECK);
    EXPECT_EQ(joined.bytes, "Caf\xE9 \xF1 \xFC \xC5"); // 10 bytes from 14 wide characters
    EXPECT_EQ(joined.usedDefault, FALSE);
    EXPECT_EQ(convert(u"Cafe\u0301").bytes, "Cafe?"); // without the flag the accent has no byte
    EXPECT_EQ(convert(u"e\u0301\u0301", WC_COMPOSITECHECK).bytes, "\xE9?");
    EXPECT_EQ(convert(u"\u0301e", WC_COMPOSITECHECK).bytes, "?e");

    // a + macron is a character 1252 lacks.
    EXPECT_EQ(convert(u"a\u0304b", WC_COMPOSITECHECK).bytes, "a?b");
    EXPECT_EQ(convert(u"a\u0304b", WC_COMPOSITECHECK | WC_DISCARDNS).bytes, "ab");
    EXPECT_EQ(convert(u"a\u0304b", WC_COMPOSITECHECK | WC_DEFAULTCHAR).bytes, "?b");
}

TEST(AnsiText, TerminatorBufferSizesAndRefusals) {
    const char16_t text[] = u"Caf\u00E9";
    char buffer[8];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0), 5); // the terminator counts
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, -1, buffer, 5), 5);
    EXPECT_EQ(QByteArray(buffer, 6), QByteArray("Caf\xE9\0x", 6));
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, 3, buffer, 8), 3); // no terminator asked for, none written
    EXPECT_EQ(QByteArray(buffer, 6), QByteArray("Caf\xE9\0x", 6));
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, WC_COMPOSITECHECK, u"e\u0301", -1, nullptr, 0), 2);

    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, -1, buffer, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    for (int cchWide : {0, -2}) {
        EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, cchWide, buffer, 8), 0);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(65001, 0, text, -1, buffer, 8), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}
