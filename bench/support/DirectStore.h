#pragma once
// The baseline of the store benchmarks: the same reads and writes done with hand-written SQLite
// statements directly on the volume's tables (records, props, databases), through a connection of
// its own to the same file, every statement prepared once.

#include "DbRecord.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

// One property as the baseline reads it: the property id and the stored value.
struct DirectProp {
    CEPROPID id = 0;
    std::variant<std::monostate, std::int64_t, double, QString, QByteArray> value;
    friend bool operator==(const DirectProp&, const DirectProp&) = default;
};
using DirectRecord = std::vector<DirectProp>;

class DirectStore {
public:
    explicit DirectStore(QString path);
    ~DirectStore();
    DirectStore(const DirectStore&) = delete;
    DirectStore& operator=(const DirectStore&) = delete;

    bool open();
    QString errorText() const { return m_error; }

    // A read transaction around several reads: one snapshot, one lock for all of them.
    bool beginRead();
    bool endRead();

    // The object identifier of the named database, 0 when there is none.
    CEOID databaseId(const QString& name);
    // The first record of database (in sort order) whose sort key equals key, 0 when there is none.
    CEOID seekFirstEqual(CEOID database, std::int64_t key);
    // All properties of record, in ascending property-id order.
    bool readRecord(CEOID record, DirectRecord& props);
    // What a log page does to show a day, in one read transaction: the named database, the record
    // keyed key, all its properties. False when there is no such record.
    bool readDay(const QString& database, std::int64_t key, DirectRecord& props);
    // The properties of record whose ids lie from first to last, in ascending property-id order.
    bool readProps(CEOID record, CEPROPID first, CEPROPID last, DirectRecord& props);
    // From the record keyed key toward earlier keys, one record at a time, reads each record's
    // properties from first to last into props until accept takes them. *found is the accepted
    // record, 0 when none was; false on a failure.
    bool walkBack(CEOID database, std::int64_t key, CEPROPID first, CEPROPID last,
                  const std::function<bool(const DirectRecord&)>& accept, DirectRecord& props, CEOID* found);
    // In one write transaction: finds the database by name and its record keyed key, and inserts or
    // replaces props in it. False when either is missing or a statement fails.
    bool writeDayProps(const QString& name, std::int64_t key, const DirectRecord& props);
    // Writes props into the existing record of database in one transaction, each property
    // inserted or replaced; the record's other properties and its sort key stay as they are.
    bool writeProps(CEOID database, CEOID record, const DirectRecord& props);
    // Reads every record of database in sort order and hands each to visit; the number of
    // records, or -1 on failure. (Records without a sort key would come first here, not last as
    // in the store; every record of a generated log has one.)
    long walk(CEOID database, const std::function<void(CEOID, const DirectRecord&)>& visit);

    // A write transaction around several writes: one commit for all of them.
    bool beginWrite();
    bool commitWrite();
    // Adds a record keyed key to database, holding props (the key among them), inside the open write
    // transaction; its identifier, 0 on failure.
    CEOID addRecord(CEOID database, std::int64_t key, const DirectRecord& props);

    // The values a record's properties are stored as.
    static DirectRecord fromRecord(const DbRecord& record);

private:
    // Writes props into record inside the open transaction (when ok), then commits, or rolls back
    // when anything failed.
    bool upsertAndCommit(bool ok, CEOID record, const DirectRecord& props);
    bool prepare(sqlite3_stmt** statement, const char* sql);
    bool exec(sqlite3_stmt* statement);
    bool fail();
    static DirectProp column(sqlite3_stmt* statement, int idColumn);

    QString m_path;
    QString m_error;
    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_findDatabase = nullptr;
    sqlite3_stmt* m_seekEqual = nullptr;
    sqlite3_stmt* m_readProps = nullptr;
    sqlite3_stmt* m_beginRead = nullptr;
    sqlite3_stmt* m_begin = nullptr;
    sqlite3_stmt* m_checkRecord = nullptr;
    sqlite3_stmt* m_upsertProp = nullptr;
    sqlite3_stmt* m_commit = nullptr;
    sqlite3_stmt* m_rollback = nullptr;
    sqlite3_stmt* m_walk = nullptr;
    sqlite3_stmt* m_readRange = nullptr;
    sqlite3_stmt* m_walkBack = nullptr;
    sqlite3_stmt* m_addRecord = nullptr;
};
