#include "AnsiText.h"

#include <QByteArray>
#include <QStringDecoder>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {
// Converts text into a generous buffer.
QByteArray convert(const std::u16string& text, DWORD flags = 0) {
    char buffer[64];
    const int n = WideCharToMultiByte(CP_ACP, flags, text.data(), static_cast<int>(text.size()), buffer, 64);
    return QByteArray(buffer, n);
}

char16_t back(char byte) {
    WCHAR wide = 0;
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, &byte, 1, &wide, 1), 1);
    return wide;
}
} // namespace

// Over every UTF-16 code unit: 251 bytes are produced (all but the five undefined ones), each by
// exactly one unit, and each decodes back to that unit in Windows-1252, as the way back reads it.
TEST(AnsiText, EveryCodeUnitMapsToItsOwnByteOrToTheDefault) {
    QStringDecoder decoder("windows-1252");
    ASSERT_TRUE(decoder.isValid());
    std::set<unsigned char> produced;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto wide = static_cast<char16_t>(unit);
        char byte = 0;
        ASSERT_EQ(WideCharToMultiByte(CP_ACP, 0, &wide, 1, &byte, 1), 1);
        if (byte == '?' && unit != u'?') {
            continue; // no byte of its own
        }
        ASSERT_TRUE(produced.insert(static_cast<unsigned char>(byte)).second) << std::hex << unit;
        ASSERT_EQ(decoder.decode(QByteArray(1, byte)), QString(QChar(wide))) << std::hex << unit;
        ASSERT_EQ(back(byte), wide) << std::hex << unit;
    }
    EXPECT_EQ(produced.size(), 251u);
    for (unsigned char undefined : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
        EXPECT_EQ(produced.count(undefined), 0u);
        EXPECT_EQ(back(static_cast<char>(undefined)), undefined);
    }
}

TEST(AnsiText, WhatDoesNotFitBecomesAQuestionMarkAndCompositeCheckJoinsLetterAndAccent) {
    const std::tuple<std::u16string, DWORD, QByteArray> cases[] = {
        {u"a\u2192b\u0100\u4E2D", 0, "a?b??"},
        {u"x\U0001F600y", 0, "x??y"}, // a surrogate pair is two code units
        // 10 bytes from 14 wide characters.
        {u"Cafe\u0301 n\u0303 u\u0308 A\u030A", WC_COMPOSITECHECK, "Caf\xE9 \xF1 \xFC \xC5"},
        {u"e\u0300", WC_COMPOSITECHECK, "\xE8"}, // the first combining accent
        {u"e\u0301\u0301", WC_COMPOSITECHECK, "\xE9?"},
        {u"\u0301e", WC_COMPOSITECHECK, "?e"},
        {u"a\u0304b", WC_COMPOSITECHECK, "a?b"}, // a + macron is a character 1252 lacks
    };
    for (const auto& [text, flags, expected] : cases) {
        EXPECT_EQ(convert(text, flags), expected) << expected.toStdString();
    }
}
