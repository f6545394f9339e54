#include "TimeFormat.h"

#include "Clock.h"
#include "TimeConversion.h"

#include <array>
#include <optional>

namespace {
// ERROR_INVALID_FLAGS: a picture given together with DATE_SHORTDATE/DATE_LONGDATE, both of those
// at once, or a flag the function does not know.
constexpr DWORD kErrorInvalidFlags = 1004;
constexpr DWORD kTimeFlags = TIME_NOMINUTESORSECONDS | TIME_NOSECONDS | TIME_NOTIMEMARKER | TIME_FORCE24HOURFORMAT;
constexpr DWORD kDateFlags = DATE_SHORTDATE | DATE_LONGDATE;

const std::array<const char*, 7> kDayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                              "Thursday", "Friday", "Saturday"};
const std::array<const char*, 12> kMonthNames = {"January", "February", "March",     "April",   "May",      "June",
                                                 "July",    "August",   "September", "October", "November", "December"};

enum class Picture { Time, Date };

bool isFieldLetter(QChar c, Picture kind) {
    const char16_t u = c.unicode();
    if (kind == Picture::Time) {
        return u == 'h' || u == 'H' || u == 'm' || u == 's' || u == 't';
    }
    return u == 'd' || u == 'M' || u == 'y' || u == 'g';
}

// The text being built. When a field is left out (TIME_NOSECONDS and the like) everything written
// since the previous field goes with it, and so does the literal text up to the next field, spaces
// excepted: "h:mm:ss tt" without seconds reads "h:mm tt".
struct Output {
    QString text;
    qsizetype fieldEnd = 0;
    bool skipping = false;

    void literal(QChar c, bool quoted) {
        if (!skipping || (!quoted && c == u' ')) {
            text += c;
        }
    }
    void field(const QString& value) {
        skipping = false;
        text += value;
        fieldEnd = text.size();
    }
    void dropField() {
        text.truncate(fieldEnd);
        skipping = true;
    }
};

// One letter: no leading zero; two or more: two digits.
QString number(int value, int count) {
    return QString::number(value).rightJustified(count >= 2 ? 2 : 1, u'0');
}

std::optional<QString> timeField(char16_t letter, int count, const SYSTEMTIME& t, DWORD flags) {
    const bool pm = t.wHour >= 12;
    switch (letter) {
    case 'h':
        if (!(flags & TIME_FORCE24HOURFORMAT)) {
            return number(t.wHour % 12 == 0 ? 12 : t.wHour % 12, count);
        }
        return number(t.wHour, count);
    case 'H':
        return number(t.wHour, count);
    case 'm':
        if (flags & TIME_NOMINUTESORSECONDS) {
            return std::nullopt;
        }
        return number(t.wMinute, count);
    case 's':
        if (flags & (TIME_NOMINUTESORSECONDS | TIME_NOSECONDS)) {
            return std::nullopt;
        }
        return number(t.wSecond, count);
    default: // 't'
        if (flags & TIME_NOTIMEMARKER) {
            return std::nullopt;
        }
        return QString::fromLatin1(pm ? "PM" : "AM").left(count == 1 ? 1 : 2);
    }
}

QString nameField(const char* name, int count) {
    const QString full = QString::fromLatin1(name);
    return count == 3 ? full.left(3) : full;
}

QString dateField(char16_t letter, int count, const SYSTEMTIME& d) {
    switch (letter) {
    case 'd':
        return count >= 3 ? nameField(kDayNames[d.wDayOfWeek], count) : number(d.wDay, count);
    case 'M':
        return count >= 3 ? nameField(kMonthNames[d.wMonth - 1], count) : number(d.wMonth, count);
    case 'y':
        return count >= 4 ? QString::number(d.wYear).rightJustified(4, u'0') : number(d.wYear % 100, count);
    default: // 'g', the era
        return QStringLiteral("A.D.");
    }
}

// Copies a quoted literal starting after its opening quote; returns the index after its closing one.
qsizetype copyQuoted(const QString& picture, qsizetype i, Output& out) {
    while (i < picture.size()) {
        if (picture[i] == u'\'') {
            if (i + 1 < picture.size() && picture[i + 1] == u'\'') {
                out.literal(u'\'', true);
                i += 2;
                continue;
            }
            return i + 1;
        }
        out.literal(picture[i], true);
        ++i;
    }
    return i;
}

QString formatPicture(const QString& picture, Picture kind, const SYSTEMTIME& st, DWORD flags) {
    Output out;
    qsizetype i = 0;
    while (i < picture.size()) {
        const QChar c = picture[i];
        if (c == u'\'') {
            i = copyQuoted(picture, i + 1, out);
        } else if (isFieldLetter(c, kind)) {
            int count = 0;
            for (; i < picture.size() && picture[i] == c; ++i) {
                ++count;
            }
            if (kind == Picture::Date) {
                out.field(dateField(c.unicode(), count, st));
            } else if (const auto value = timeField(c.unicode(), count, st, flags)) {
                out.field(*value);
            } else {
                out.dropField();
            }
        } else {
            out.literal(c, false);
            ++i;
        }
    }
    return out.text;
}

SYSTEMTIME nowOr(const SYSTEMTIME* given) {
    if (given != nullptr) {
        return *given;
    }
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now;
}

QString fail(DWORD error) {
    SetLastError(error);
    return {};
}
} // namespace

QString GetTimeFormatW(DWORD flags, const SYSTEMTIME* time, const QString& format) {
    if (flags & ~kTimeFlags) {
        return fail(kErrorInvalidFlags);
    }
    const SYSTEMTIME t = nowOr(time);
    // Only the time fields count; the date may be anything.
    if (t.wHour > 23 || t.wMinute > 59 || t.wSecond > 59 || t.wMilliseconds > 999) {
        return fail(ERROR_INVALID_PARAMETER);
    }
    return formatPicture(format.isEmpty() ? QStringLiteral("h:mm:ss tt") : format, Picture::Time, t, flags);
}

QString GetDateFormatW(DWORD flags, const SYSTEMTIME* date, const QString& format) {
    if ((flags & ~kDateFlags) || (flags & kDateFlags) == kDateFlags || (!format.isEmpty() && flags != 0)) {
        return fail(kErrorInvalidFlags);
    }
    // Only the date fields count, and the day of the week is worked out from them.
    const SYSTEMTIME given = nowOr(date);
    SYSTEMTIME day;
    day.wYear = given.wYear;
    day.wMonth = given.wMonth;
    day.wDay = given.wDay;
    FILETIME ft;
    if (!SystemTimeToFileTime(&day, &ft) || !FileTimeToSystemTime(&ft, &day)) {
        return fail(ERROR_INVALID_PARAMETER);
    }
    QString picture = format;
    if (picture.isEmpty()) {
        picture = (flags & DATE_LONGDATE) ? QStringLiteral("dddd, MMMM dd, yyyy") : QStringLiteral("M/d/yy");
    }
    return formatPicture(picture, Picture::Date, day, flags);
}
