#include "TableCells.h"

#include <QLocale>

QString TableCells::date(const QDate& day) {
    return day.toString(Qt::ISODate);
}

QString TableCells::clock(int hour, int minute) {
    return QString::asprintf("%02d:%02d", hour, minute);
}

QString TableCells::elapsed(int minutes, int seconds) {
    return QString::asprintf("%d:%02d:%02d", minutes / 60, minutes % 60, seconds);
}

QString TableCells::number(double value) {
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}
