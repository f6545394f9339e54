#pragma once
// Reads what the dated logs hold with plain SQL: a day's record is found by the value of its
// property 64, computed here from the calendar independently of the day-key code. Every read checks
// that the day has no second record.

#include "SqlReader.h"

#include <QDate>
#include <QString>
#include <QTime>

#include <gtest/gtest.h>

// The property types (CEVT_ codes) as the file stores them; `using namespace PropType` names them
// without a class's name before them.
namespace PropType {
inline constexpr int kI2 = 2, kI4 = 3, kR8 = 5, kUI2 = 18, kText = 31, kFileTime = 64, kBlob = 65;
} // namespace PropType

class StoredDays {
public:
    explicit StoredDays(const QString& objectStore) : m_sql(objectStore) {}

    // The FILETIME count of day at time.
    static qint64 fileTimeOf(const QDate& day, const QTime& time) {
        const qint64 seconds = QDate(1601, 1, 1).daysTo(day) * 86400 + time.msecsSinceStartOfDay() / 1000;
        return seconds * 10'000'000 + time.msec() * 10'000;
    }
    // The FILETIME count of day at 12:12:12.012.
    static qint64 keyOf(const QDate& day) { return fileTimeOf(day, QTime(12, 12, 12, 12)); }
    static qint64 propId(int number, int type) { return (qint64(number) << 16) | type; }

    qint64 recordCount(const QString& db) const {
        return m_sql.value("SELECT count(*) FROM records r JOIN databases d ON r.db = d.oid WHERE d.name = ?", {db})
            .toLongLong();
    }
    // The number of properties of the day's record, or of those numbered first to last.
    qint64 propCount(const QString& db, const QDate& day, int first = 0, int last = 0xFFFF) const {
        expectOneRecord(db, day);
        return m_sql
            .value("SELECT count(*) FROM props p WHERE p.record = (" + kDayRecord +
                       ") AND (p.propid >> 16) BETWEEN ? AND ?",
                   {db, keyOf(day), first, last})
            .toLongLong();
    }
    // The day's properties numbered first to last as "number:type" in id order, joined by commas.
    QString props(const QString& db, const QDate& day, int first = 0, int last = 0xFFFF) const {
        expectOneRecord(db, day);
        return m_sql
            .value("SELECT group_concat((propid >> 16) || ':' || (propid & 65535), ',') FROM (SELECT propid FROM "
                   "props WHERE record = (" +
                       kDayRecord + ") AND (propid >> 16) BETWEEN ? AND ? ORDER BY propid)",
                   {db, keyOf(day), first, last})
            .toString();
    }
    // The value of the property of that number and type (invalid when the record lacks it).
    QVariant value(const QString& db, const QDate& day, int number, int type) const {
        expectOneRecord(db, day);
        return m_sql.value("SELECT value FROM props WHERE record = (" + kDayRecord + ") AND propid = ?",
                           {db, keyOf(day), propId(number, type)});
    }

private:
    // A day has one record at most: whatever wrote the day twice fails every test that reads it.
    void expectOneRecord(const QString& db, const QDate& day) const {
        EXPECT_LE(m_sql.value("SELECT count(*) FROM (" + kDayRecord + ")", {db, keyOf(day)}).toLongLong(), 1)
            << db.toStdString() << " holds " << day.toString(Qt::ISODate).toStdString() << " twice";
    }

    inline static const QString kDayRecord =
        "SELECT r.oid FROM records r JOIN databases d ON r.db = d.oid JOIN props k ON k.record = r.oid "
        "WHERE d.name = ? AND k.propid = 4194368 AND k.value = ?";
    SqlReader m_sql;
};
