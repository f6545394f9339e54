#pragma once
// The text of a value in the tidy tables: ISO dates, 24-hour times, numbers with a dot in their
// shortest exact form, yes and no.

#include <QDate>
#include <QString>

class TableCells {
public:
    static inline const QString kYes = QStringLiteral("yes");
    static inline const QString kNo = QStringLiteral("no");
    // A rating drop-down with nothing chosen.
    static inline const QString kNoChoice = QStringLiteral("none");

    // YYYY-MM-DD.
    static QString date(const QDate& day);
    // HH:MM, 24-hour.
    static QString clock(int hour, int minute);
    // h:mm:ss.
    static QString elapsed(int minutes, int seconds);
    // The shortest text that reads back as exactly the same double: 82.5, 100, 0.3.
    static QString number(double value);
};
