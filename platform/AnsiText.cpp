#include "AnsiText.h"

#include <QString>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

namespace {
// What 1252 puts at 0x80..0x9F; 0 marks the five bytes it leaves undefined.
constexpr char16_t kBlock80[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                   0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::optional<char> toWindows1252(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
        return static_cast<char>(unit);
    }
    const auto* found = std::find(std::begin(kBlock80), std::end(kBlock80), unit);
    if (unit == 0 || found == std::end(kBlock80)) {
        return std::nullopt;
    }
    return static_cast<char>(0x80 + (found - std::begin(kBlock80)));
}

bool isCombiningMark(char16_t unit) {
    return unit >= 0x0300 && unit <= 0x036F;
}

class Conversion {
public:
    explicit Conversion(DWORD flags) : m_flags(flags) {}

    std::string run(const WCHAR* wide, int length) {
        int i = 0;
        while (i < length) {
            const bool pair = (m_flags & WC_COMPOSITECHECK) && i + 1 < length && isCombiningMark(wide[i + 1]) &&
                              !isCombiningMark(wide[i]);
            if (pair) {
                putPair(wide[i], wide[i + 1]);
                i += 2;
            } else {
                put(wide[i]);
                ++i;
            }
        }
        return m_bytes;
    }

private:
    void put(char16_t unit) { m_bytes += toWindows1252(unit).value_or('?'); }
    void putPair(char16_t base, char16_t mark) {
        const QChar units[] = {QChar(base), QChar(mark)};
        const QString composed = QString(units, 2).normalized(QString::NormalizationForm_C);
        const auto byte = composed.size() == 1 ? toWindows1252(composed[0].unicode()) : std::nullopt;
        if (byte) {
            m_bytes += *byte;
        } else {
            put(base);
            put(mark);
        }
    }

    DWORD m_flags;
    std::string m_bytes;
};

int fail(DWORD error) {
    SetLastError(error);
    return 0;
}
} // namespace

int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* wide, int cchWide, char* multi, int cbMulti) {
    if (codePage != CP_ACP || wide == nullptr || cchWide < 1 || multi == nullptr || cbMulti < 1) {
        return fail(ERROR_INVALID_PARAMETER);
    }
    const std::string bytes = Conversion(flags).run(wide, cchWide);
    const int count = std::min(static_cast<int>(bytes.size()), cbMulti);
    std::memcpy(multi, bytes.data(), static_cast<size_t>(count));
    return count;
}

int MultiByteToWideChar(UINT codePage, DWORD, const char* multi, int cbMulti, WCHAR* wide, int cchWide) {
    if (codePage != CP_ACP || multi == nullptr || cbMulti < 1 || wide == nullptr || cchWide < 1) {
        return fail(ERROR_INVALID_PARAMETER);
    }
    const int count = std::min(cbMulti, cchWide);
    for (int i = 0; i < count; ++i) {
        const auto byte = static_cast<unsigned char>(multi[i]);
        const char16_t mapped = byte >= 0x80 && byte < 0xA0 ? kBlock80[byte - 0x80] : 0;
        wide[i] = mapped != 0 ? mapped : static_cast<char16_t>(byte);
    }
    return count;
}
