#include "TimeFormat.h"

#include <optional>

namespace {
bool isFieldLetter(QChar c) {
    const char16_t u = c.unicode();
    return u == 'h' || u == 'm' || u == 's' || u == 't';
}

// The text being built. When a field is left out (TIME_NOSECONDS) everything written since the
// previous field goes with it, and so does the literal text up to the next field, spaces excepted:
// "h:mm:ss tt" without seconds reads "h:mm tt".
struct Output {
    QString text;
    qsizetype fieldEnd = 0;
    bool skipping = false;

    void literal(QChar c) {
        if (!skipping || c == u' ') {
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
    switch (letter) {
    case 'h':
        return number(t.wHour % 12 == 0 ? 12 : t.wHour % 12, count);
    case 'm':
        return number(t.wMinute, count);
    case 's':
        if (flags & TIME_NOSECONDS) {
            return std::nullopt;
        }
        return number(t.wSecond, count);
    default: // 't'
        return QString::fromLatin1(t.wHour >= 12 ? "PM" : "AM").left(count == 1 ? 1 : 2);
    }
}

QString formatPicture(const QString& picture, const SYSTEMTIME& t, DWORD flags) {
    Output out;
    qsizetype i = 0;
    while (i < picture.size()) {
        const QChar c = picture[i];
        if (!isFieldLetter(c)) {
            out.literal(c);
            ++i;
            continue;
        }
        int count = 0;
        for (; i < picture.size() && picture[i] == c; ++i) {
            ++count;
        }
        if (const auto value = timeField(c.unicode(), count, t, flags)) {
            out.field(*value);
        } else {
            out.dropField();
        }
    }
    return out.text;
}
} // namespace

// Only the time fields count; the date may be anything.
QString GetTimeFormatW(DWORD flags, const SYSTEMTIME* time, const QString& format) {
    return formatPicture(format.isEmpty() ? QStringLiteral("h:mm:ss tt") : format, *time, flags);
}
