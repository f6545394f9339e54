#pragma once
// Writes day records into a volume file with plain SQL, independently of the store's code, as
// docs/storage.md describes a script doing it: the tests of the pages that read the logs set up
// what the logs hold this way.

#include <QDate>
#include <QString>
#include <QTime>
#include <QVariant>

#include <utility>
#include <vector>

struct sqlite3;

class SqlDayWriter {
public:
    static constexpr int kI2 = 2, kUI2 = 18, kR8 = 5, kText = 31, kFileTime = 64;
    // One property: number, type, value (text for kText, a number otherwise).
    struct Prop {
        int number;
        int type;
        QVariant value;
    };

    explicit SqlDayWriter(const QString& path);
    ~SqlDayWriter();
    SqlDayWriter(const SqlDayWriter&) = delete;
    SqlDayWriter& operator=(const SqlDayWriter&) = delete;

    // Adds the day's record, keyed on the day, to the dated log name (created, type 12345 and
    // sorted on the day key, when missing).
    void addDay(const QString& name, const QDate& day, const std::vector<Prop>& props);
    // A meal time on the reference day, as the food log stores it.
    static Prop mealTime(int number, int hour, int minute);
    static Prop text(int number, const QString& value) { return {number, kText, value}; }

private:
    qint64 nextId();
    qint64 database(const QString& name);
    void exec(const QString& sql, const QVariantList& args = {});

    sqlite3* m_db = nullptr;
};
