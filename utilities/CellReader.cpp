#include "CellReader.h"

#include "DayKey.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>

namespace {
QString dateText(const QString& text) {
    // A date cell may carry the time after it ("2024-01-08 07:02", "4 Mar 2024, 08:15").
    const qsizetype comma = text.indexOf(QLatin1Char(','));
    if (comma >= 0) {
        return text.left(comma).trimmed();
    }
    const qsizetype space = text.indexOf(QLatin1Char(' '));
    if (space >= 0 && text.indexOf(QLatin1Char('-')) >= 0) {
        return text.left(space);
    }
    return text;
}
} // namespace

QString CellReader::text(int column) const {
    return column >= 0 && column < m_cells.size() ? m_cells.at(column) : QString();
}

void CellReader::problem(int column, const QString& what) {
    const QString name = column >= 0 && column < m_names.size() ? m_names.at(column) : QStringLiteral("a column");
    m_problems << QStringLiteral("%1 \"%2\" %3").arg(name, text(column), what);
}

std::optional<int> CellReader::integer(int column, int low, int high) {
    const QString cell = text(column).trimmed();
    if (cell.isEmpty()) {
        return std::nullopt;
    }
    bool ok = false;
    const int value = cell.toInt(&ok);
    if (!ok) {
        problem(column, QStringLiteral("is not a whole number"));
        return std::nullopt;
    }
    if (value < low || value > high) {
        problem(column, QStringLiteral("is not from %1 to %2").arg(low).arg(high));
        return std::nullopt;
    }
    return value;
}

std::optional<double> CellReader::number(int column, double low, double high) {
    const QString cell = text(column).trimmed();
    if (cell.isEmpty()) {
        return std::nullopt;
    }
    bool ok = false;
    const double value = cell.toDouble(&ok);
    if (!ok || !std::isfinite(value)) {
        problem(column, QStringLiteral("is not a number"));
        return std::nullopt;
    }
    if (value < low || value > high) {
        problem(column, QStringLiteral("is not from %1 to %2").arg(low).arg(high));
        return std::nullopt;
    }
    return value;
}

std::optional<QDate> CellReader::parseDate(const QString& text, DateStyle style) {
    const QString cell = dateText(text.trimmed());
    QDate day;
    switch (style) {
    case DateStyle::Iso: {
        static const QRegularExpression iso(QStringLiteral("^(\\d{4})-(\\d{1,2})-(\\d{1,2})$"));
        const QRegularExpressionMatch match = iso.match(cell);
        if (match.hasMatch()) {
            day = QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
        }
        break;
    }
    case DateStyle::MonthFirst: {
        static const QRegularExpression us(QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})$"));
        const QRegularExpressionMatch match = us.match(cell);
        if (match.hasMatch()) {
            day = QDate(match.captured(3).toInt(), match.captured(1).toInt(), match.captured(2).toInt());
        }
        break;
    }
    case DateStyle::DayMonth:
        day = QLocale::c().toDate(cell, QStringLiteral("d MMM yyyy"));
        break;
    }
    if (!day.isValid() || day <= DayKey::referenceDate()) {
        return std::nullopt;
    }
    return day;
}

std::optional<QDate> CellReader::date(int column, DateStyle style) {
    if (isEmpty(column)) {
        problem(column, QStringLiteral("is not a date"));
        return std::nullopt;
    }
    const std::optional<QDate> day = parseDate(text(column), style);
    if (!day) {
        problem(column, QStringLiteral("is not a date after 1968"));
    }
    return day;
}

std::optional<QTime> CellReader::parseTime(const QString& text) {
    static const QRegularExpression clock(
        QStringLiteral("(\\d{1,2}):(\\d{2})(?::(\\d{2}))?\\s*([AaPp][Mm])?$"));
    const QRegularExpressionMatch match = clock.match(text.trimmed());
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    int hour = match.captured(1).toInt();
    const QString half = match.captured(4).toUpper();
    if (!half.isEmpty()) {
        if (hour < 1 || hour > 12) {
            return std::nullopt;
        }
        hour = hour % 12 + (half == QStringLiteral("PM") ? 12 : 0);
    }
    const QTime time(hour, match.captured(2).toInt(), match.captured(3).toInt());
    return time.isValid() ? std::optional<QTime>(time) : std::nullopt;
}

std::optional<QTime> CellReader::time(int column) {
    if (isEmpty(column)) {
        return std::nullopt;
    }
    const std::optional<QTime> time = parseTime(text(column));
    if (!time) {
        problem(column, QStringLiteral("is not a time of day"));
    }
    return time;
}

std::optional<int> CellReader::elapsed(int column) {
    const QString cell = text(column).trimmed();
    if (cell.isEmpty()) {
        return std::nullopt;
    }
    static const QRegularExpression span(QStringLiteral("^(\\d{1,2}):(\\d{2}):(\\d{2})$"));
    const QRegularExpressionMatch match = span.match(cell);
    const int hours = match.captured(1).toInt();
    const int minutes = match.captured(2).toInt();
    const int seconds = match.captured(3).toInt();
    if (!match.hasMatch() || hours > 23 || minutes > 59 || seconds > 59) {
        problem(column, QStringLiteral("is not an elapsed time from 0:00:00 to 23:59:59"));
        return std::nullopt;
    }
    return (hours * 60 + minutes) * 60 + seconds;
}

std::optional<bool> CellReader::yesNo(int column) {
    const QString cell = text(column).trimmed().toLower();
    if (cell.isEmpty()) {
        return std::nullopt;
    }
    if (cell == QStringLiteral("yes") || cell == QStringLiteral("true")) {
        return true;
    }
    if (cell == QStringLiteral("no") || cell == QStringLiteral("false")) {
        return false;
    }
    problem(column, QStringLiteral("is neither yes nor no"));
    return std::nullopt;
}
