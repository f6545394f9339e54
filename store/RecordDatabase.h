#pragma once
// One open database of the object store, the operations every log and list uses. A database is
// opened for one operation and closed after it; the destructor closes it too.

#include "DbRecord.h"

#include <QString>

class RecordDatabase {
public:
    // The database type every database the program creates carries.
    static constexpr DWORD kDatabaseType = 12345;

    RecordDatabase() = default;
    ~RecordDatabase();
    RecordDatabase(const RecordDatabase&) = delete;
    RecordDatabase& operator=(const RecordDatabase&) = delete;

    // True when a database of that name exists in the object store.
    static bool Exists(const QString& name);
    // Creates an empty database with one ascending sort order on sortProp.
    static bool Create(const QString& name, DWORD type, CEPROPID sortProp);

    // Opens the database sorted on sortProp (0: the order records were created in); SeekFirst or
    // SeekNext then starts at its first record. An open database is closed first.
    bool Open(const QString& name, CEPROPID sortProp = 0);
    void Close();
    bool isOpen() const { return m_handle != nullptr; }
    QString name() const { return m_name; }
    CEPROPID sortProperty() const { return m_sortProp; }

    // Deletes the open database with all its records, and closes it.
    bool DeleteDatabase();

    // The first record whose sort property equals value; 0 when there is none.
    CEOID SeekFirstEqual(const DbProp& value);
    // The first, or the next, record in sort order; 0 at the end.
    CEOID SeekFirst();
    CEOID SeekNext();
    // The record before the current one in sort order; 0 at the first record (or with nothing
    // current), and nothing is current then.
    CEOID SeekPrevious();
    // The last record whose sort property is below value; 0 when there is none.
    CEOID SeekLastSmaller(const DbProp& value);
    // Reads all properties of the current record into record.
    bool ReadCurrent(DbRecord& record);
    // Reads only the properties of the current record whose ids (number and type) are in wanted, in
    // the order of wanted; those the record lacks are left out. One query for a contiguous range of
    // ids, however many records a walk reads: a group's sets, not the whole day.
    bool ReadCurrent(DbRecord& record, const std::vector<CEPROPID>& wanted);
    // Writes record into record oid (0: a new one); returns the record's identifier or 0.
    CEOID Write(const DbRecord& record, CEOID oid);
    bool DeleteRecord(CEOID oid);
    CEOID CurrentRecordId() const { return m_current; }
    // The number of records in the open database.
    DWORD recordCount() const;

private:
    CEOID seek(DWORD seekType, DWORD value);
    CEOID seekValue(DWORD seekType, const DbProp& value);

    HANDLE m_handle = nullptr;
    QString m_name;
    CEOID m_oid = 0;
    CEPROPID m_sortProp = 0;
    CEOID m_current = 0;
    // A seek has placed the pointer since opening: the next record is the one after it, even when
    // the record it found has been deleted since (the pointer keeps its place in the order).
    bool m_sought = false;
    bool m_pastEnd = false;
    // What the last read of a list of properties gave, kept so that a walk reuses its room.
    std::vector<CEPROPVAL> m_wantedValues;
};
