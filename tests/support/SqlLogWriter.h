#pragma once
// Writes dated logs and name lists into a volume file with plain SQL, as anyone with the sqlite3 shell
// could, independently of the store's code: a database sorted on the day key, a day's record with the
// properties given, a list's items. New ids lie above every id in use, as the file format asks. The
// tests of what reads the logs set up what the logs hold this way.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

struct sqlite3;

class SqlLogWriter {
public:
    static constexpr int kI2 = 2, kUI2 = 18, kR8 = 5, kText = 31, kFileTime = 64;
    // One property: its number, its type (a CEVT_ code) and its value (text, a number or a double).
    struct Prop {
        int number;
        int type;
        QVariant value;
    };

    explicit SqlLogWriter(const QString& objectStore);
    ~SqlLogWriter();
    SqlLogWriter(const SqlLogWriter&) = delete;
    SqlLogWriter& operator=(const SqlLogWriter&) = delete;

    // The dated log, empty (made when missing: type 12345, sorted on the day key).
    void writeLog(const QString& log);
    // The day's record in log (made when missing), holding props.
    void writeDay(const QString& log, const QDate& day, const std::vector<Prop>& props);
    // A name list (sorted on property 801) holding items.
    void writeList(const QString& list, const QStringList& items);

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
