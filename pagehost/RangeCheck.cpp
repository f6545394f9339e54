#include "RangeCheck.h"

#include <QLocale>
#include <QRegularExpression>

namespace {
bool isPlain(RangeCheck::Kind kind, const QString& text) {
    static const QRegularExpression integer(QStringLiteral("^[+-]?[0-9]+$"));
    static const QRegularExpression number(QStringLiteral("^[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)$"));
    return (kind == RangeCheck::Kind::Integer ? integer : number).match(text).hasMatch();
}
} // namespace

RangeCheck::Result RangeCheck::check(Kind kind, const QString& text, double minimum, double maximum) {
    const QString trimmed = text.trimmed();
    bool parsed = isPlain(kind, trimmed);
    const double value = parsed ? QLocale::c().toDouble(trimmed, &parsed) : 0;
    if (!parsed) {
        return {std::nullopt, kind == Kind::Integer ? QStringLiteral("Please enter an integer.")
                                                    : QStringLiteral("Please enter a number.")};
    }
    if (value < minimum || value > maximum) {
        return {std::nullopt, rangeMessage(kind, minimum, maximum)};
    }
    return {value, QString()};
}

QString RangeCheck::rangeMessage(Kind kind, double minimum, double maximum) {
    const QString pattern = kind == Kind::Integer ? QStringLiteral("Please enter an integer between %1 and %2.")
                                                  : QStringLiteral("Please enter a number between %1 and %2.");
    return pattern.arg(bound(minimum), bound(maximum));
}

QString RangeCheck::bound(double value) {
    // The platform prints bounds with "%.*g" and fifteen significant digits.
    return QString::number(value, 'g', 15);
}
