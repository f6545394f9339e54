#pragma once
// Adds many records to databases of an existing, unmounted volume with plain SQL, one transaction
// per batch. The volume format is a public contract, so a bulk load may write it directly; the
// property-database service writes each record in a transaction of its own, which is far too slow
// for the millions of properties of a generated device.

#include "DbRecord.h"

#include <QString>

struct sqlite3;
struct sqlite3_stmt;

class BulkRecordWriter {
public:
    explicit BulkRecordWriter(QString volumePath);
    ~BulkRecordWriter();
    BulkRecordWriter(const BulkRecordWriter&) = delete;
    BulkRecordWriter& operator=(const BulkRecordWriter&) = delete;

    // Opens the volume, which must exist, be of this format and be mounted by no one.
    bool open();
    // The object identifier of the named database; 0 when there is none.
    CEOID databaseId(const QString& name);
    bool begin();
    // Adds record to database, its sort key taken from its sortProp property (NULL when it lacks it).
    bool addRecord(CEOID database, const DbRecord& record, CEPROPID sortProp);
    bool commit();
    // Restores the volume's journal mode and closes it.
    bool close();
    QString errorText() const { return m_error; }

private:
    bool exec(const char* sql);
    bool prepare(sqlite3_stmt** statement, const char* sql);
    bool step(sqlite3_stmt* statement);
    bool fail(const QString& what);
    void finalize();

    QString m_path;
    QString m_error;
    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_insertRecord = nullptr;
    sqlite3_stmt* m_insertProp = nullptr;
    sqlite3_stmt* m_findDatabase = nullptr;
    sqlite3_stmt* m_rememberOid = nullptr;
    bool m_inTransaction = false;
    CEOID m_nextOid = 0;
};
