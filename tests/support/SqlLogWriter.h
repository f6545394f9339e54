#pragma once
// Writes dated logs and name lists into a volume file with plain SQL, as anyone with the sqlite3 shell
// could, independently of the store's code: a database sorted on the day key, a day's record with the
// properties given, a list's items. New ids lie above every id in use, as the file format asks. The
// tests of what reads the logs set up what the logs hold this way, and read back the same way what
// the program wrote.

#include "StoredDays.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

struct sqlite3;

class SqlLogWriter {
public:
    static constexpr int kI2 = PropType::kI2, kUI2 = PropType::kUI2, kR8 = PropType::kR8, kText = PropType::kText,
                         kFileTime = PropType::kFileTime;
    // One property: its number, its type (a CEVT_ code) and its value (text, a number, a double or bytes).
    struct Prop {
        int number;
        int type;
        QVariant value;
    };

    explicit SqlLogWriter(const QString& volume);
    ~SqlLogWriter();
    SqlLogWriter(const SqlLogWriter&) = delete;
    SqlLogWriter& operator=(const SqlLogWriter&) = delete;

    // The dated log, empty (made when missing: type 12345, sorted on the day key).
    void writeLog(const QString& log);
    // The day's record in log (made when missing), holding props.
    void writeDay(const QString& log, const QDate& day, const std::vector<Prop>& props = {});
    // A name list (sorted on property 801) holding items.
    void writeList(const QString& list, const QStringList& items);
    // Any statements, as the sqlite3 shell runs them.
    void run(const QString& sql);

    // The records of db in sort order (or in creation order), each as its properties
    // "propid=value,..." in id order, joined by " | "; "none" when the database does not exist.
    QString dump(const QString& db, bool creationOrder = false) const;
    // The same of each database of dbs, a line each.
    QString dumpAll(const QStringList& dbs, bool creationOrder = false) const;
    // Every database as "name:type:sort property:sort flags", by name, joined by spaces.
    QString catalogue() const;

    // A meal time on the reference day, as the food log stores it.
    static Prop mealTime(int number, int hour, int minute);
    static Prop text(int number, const QString& value) { return {number, kText, value}; }

private:
    qint64 nextId();
    qint64 database(const QString& name, qint64 sortPropId);
    qint64 addRecord(qint64 database, const QVariant& key);
    void exec(const QString& sql, const QVariantList& args = {});

    sqlite3* m_db = nullptr;
};
