#pragma once
// A dated database opened in day-key order, that can step back toward earlier days one record at a
// time. Searches for the last time a group was trained start at a day and walk back from it.

#include "DbRecord.h"

#include <QDate>
#include <QString>

class DayCursor {
public:
    DayCursor() = default;
    ~DayCursor();
    DayCursor(const DayCursor&) = delete;
    DayCursor& operator=(const DayCursor&) = delete;

    // Opens the database sorted on the day key.
    bool open(const QString& name);
    void close();
    // Makes the record of day current; 0 when the day has none.
    CEOID seekDay(const QDate& day);
    // Makes the last record earlier than day current; 0 when there is none.
    CEOID seekBefore(const QDate& day);
    // Makes the record one before the current one in key order current; 0 at the first record.
    CEOID previous();
    // Reads all properties of the current record.
    bool read(DbRecord& record);

private:
    void* m_handle = nullptr;
};
