#include "AnsiText.h"

#include <QByteArray>
#include <QStringDecoder>

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

namespace {
struct Converted {
    int result = 0;
    QByteArray bytes;
    BOOL usedDefault = 7;
};

// Converts text (no terminator) into a generous buffer.
Converted convert(const std::u16string& text, DWORD flags = 0, const char* defaultChar = nullptr) {
    Converted out;
    char buffer[64];
    out.result = WideCharToMultiByte(CP_ACP, flags, text.data(), static_cast<int>(text.size()), buffer,
                                     sizeof buffer, defaultChar, &out.usedDefault);
    out.bytes = QByteArray(buffer, out.result);
    return out;
}

QByteArray bytes(std::initializer_list<unsigned char> list) {
    QByteArray b;
    for (unsigned char c : list) {
        b += static_cast<char>(c);
    }
    return b;
}
} // namespace

TEST(AnsiText, AsciiAndLatin1AreOneByteEach) {
    const Converted ascii = convert(u"Bench press, 3x10 \"heavy\"");
    EXPECT_EQ(ascii.bytes, "Bench press, 3x10 \"heavy\"");
    EXPECT_EQ(ascii.usedDefault, FALSE);

    const Converted latin1 = convert(u"\u00E9\u00FC\u00F1\u00FF\u00A0\u00A9\u00BD\u00C5");
    EXPECT_EQ(latin1.bytes, bytes({0xE9, 0xFC, 0xF1, 0xFF, 0xA0, 0xA9, 0xBD, 0xC5}));
    EXPECT_EQ(latin1.usedDefault, FALSE);
}

TEST(AnsiText, TheBlockFrom0x80) {
    const Converted typographic = convert(u"\u20AC\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152"
                                          u"\u017D\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A"
                                          u"\u0153\u017E\u0178");
    EXPECT_EQ(typographic.bytes, bytes({0x80, 0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8A, 0x8B, 0x8C, 0x8E,
                                        0x91, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99, 0x9A, 0x9B, 0x9C, 0x9E,
                                        0x9F}));
    // The C1 control characters have no place in 1252, not even at the five undefined bytes.
    const Converted controls = convert(u"\u0080\u0081\u008D\u008F\u0090\u009D\u009F");
    EXPECT_EQ(controls.bytes, "???????");
    EXPECT_EQ(controls.usedDefault, TRUE);
}

// Over every UTF-16 code unit: 251 bytes are produced (all but the five undefined ones), each by
// exactly one unit, and each decodes back to that unit in Windows-1252.
TEST(AnsiText, EveryCodeUnitMapsToItsOwnByteOrToTheDefault) {
    QStringDecoder decoder("windows-1252");
    ASSERT_TRUE(decoder.isValid());
    std::set<unsigned char> produced;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t wide = static_cast<char16_t>(unit);
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
    EXPECT_EQ(convert(u"a\u2192b", 0, "*").bytes, "a*b");
    // A character beyond the basic plane is two code units, so two bytes.
    EXPECT_EQ(convert(u"x\U0001F600y").bytes, "x??y");
    EXPECT_EQ(convert(u"\xD800").bytes, "?");
}

TEST(AnsiText, CompositeCheckJoinsLetterAndAccent) {
    const Converted cafe = convert(u"Cafe\u0301 n\u0303 u\u0308 A\u030A", WC_COMPOSITECHECK);
    EXPECT_EQ(cafe.bytes, bytes({'C', 'a', 'f', 0xE9, ' ', 0xF1, ' ', 0xFC, ' ', 0xC5}));
    EXPECT_EQ(cafe.result, 10); // four fewer bytes than the 14 wide characters
    EXPECT_EQ(cafe.usedDefault, FALSE);

    EXPECT_EQ(convert(u"Cafe\u0301").bytes, "Cafe?"); // without the flag, the accent alone has no byte
    EXPECT_EQ(convert(u"e\u0301\u0301", WC_COMPOSITECHECK).bytes, bytes({0xE9, '?'}));
    EXPECT_EQ(convert(u"\u0301e", WC_COMPOSITECHECK).bytes, "?e");

    // a + macron is a character 1252 lacks.
    EXPECT_EQ(convert(u"a\u0304", WC_COMPOSITECHECK).bytes, "a?");
    EXPECT_EQ(convert(u"a\u0304", WC_COMPOSITECHECK | WC_SEPCHARS).bytes, "a?");
    const Converted discarded = convert(u"a\u0304b", WC_COMPOSITECHECK | WC_DISCARDNS);
    EXPECT_EQ(discarded.bytes, "ab");
    EXPECT_EQ(discarded.usedDefault, FALSE);
    EXPECT_EQ(convert(u"a\u0304b", WC_COMPOSITECHECK | WC_DEFAULTCHAR).bytes, "?b");
}

TEST(AnsiText, TerminatorAndBufferSizes) {
    const char16_t text[] = u"Caf\u00E9";
    char buffer[8];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0), 5); // the terminator counts
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, -1, buffer, 5), 5);
    EXPECT_EQ(QByteArray(buffer, 6), QByteArray("Caf\xE9\0x", 6));

    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, 4, buffer, 8), 4); // no terminator asked for, none written
    EXPECT_EQ(QByteArray(buffer, 5), "Caf\xE9x");
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, WC_COMPOSITECHECK, u"e\u0301", -1, nullptr, 0), 2);

    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, text, -1, buffer, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST(AnsiText, RefusesWhatItCannotDo) {
    char buffer[8];
    const char16_t text[] = u"abc";
    struct Call {
        UINT codePage;
        const char16_t* wide;
        int cchWide;
        char* multi;
        int cbMulti;
    };
    const Call calls[] = {{65001, text, -1, buffer, 8}, {437, text, -1, buffer, 8}, {CP_ACP, text, 0, buffer, 8},
                          {CP_ACP, text, -2, buffer, 8}, {CP_ACP, nullptr, 3, buffer, 8}, {CP_ACP, text, 3, buffer, -1},
                          {CP_ACP, text, 3, nullptr, 8}};
    for (const Call& call : calls) {
        SetLastError(0);
        EXPECT_EQ(WideCharToMultiByte(call.codePage, 0, call.wide, call.cchWide, call.multi, call.cbMulti), 0);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
}
