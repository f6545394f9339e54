#include "SqlLogWriter.h"

#include "StoredDays.h"

#include <QFile>

#include <sqlite3.h>

#include <gtest/gtest.h>

SqlLogWriter::SqlLogWriter(const QString& objectStore) {
    if (sqlite3_open(QFile::encodeName(objectStore).constData(), &m_db) != SQLITE_OK) {
        ADD_FAILURE() << "cannot open " << objectStore.toStdString();
    }
    sqlite3_busy_timeout(m_db, 2000);
    exec("PRAGMA foreign_keys = ON");
}

SqlLogWriter::~SqlLogWriter() {
    sqlite3_close(m_db);
}

void SqlLogWriter::exec(const QString& sql, const QVariantList& args) {
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(m_db, sql.toUtf8().constData(), -1, &stmt, nullptr) != SQLITE_OK) {
        ADD_FAILURE() << "cannot prepare " << sql.toStdString() << ": " << sqlite3_errmsg(m_db);
        return;
    }
    for (int i = 0; i < args.size(); ++i) {
        const QVariant& arg = args.at(i);
        if (arg.typeId() == QMetaType::QString) {
            const QByteArray utf8 = arg.toString().toUtf8();
            sqlite3_bind_text(stmt, i + 1, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
        } else if (arg.typeId() == QMetaType::Double) {
            sqlite3_bind_double(stmt, i + 1, arg.toDouble());
        } else {
            sqlite3_bind_int64(stmt, i + 1, arg.toLongLong());
        }
    }
    if (sqlite3_step(stmt) != SQLITE_DONE) {
        ADD_FAILURE() << "cannot run " << sql.toStdString() << ": " << sqlite3_errmsg(m_db);
    }
    sqlite3_finalize(stmt);
}

qint64 SqlLogWriter::nextId() {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(m_db,
                       "SELECT 1 + max(coalesce((SELECT max(oid) FROM databases), 0), coalesce((SELECT max(oid) FROM "
                       "records), 0), coalesce((SELECT value FROM meta WHERE name = 'last_oid'), 0))",
                       -1, &stmt, nullptr);
    sqlite3_step(stmt);
    const qint64 id = sqlite3_column_int64(stmt, 0);
    sqlite3_finalize(stmt);
    exec("INSERT OR REPLACE INTO meta (name, value) VALUES ('last_oid', ?)", {id});
    return id;
}

qint64 SqlLogWriter::database(const QString& name, qint64 sortPropId) {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(m_db, "SELECT oid FROM databases WHERE name = ?", -1, &stmt, nullptr);
    const QByteArray utf8 = name.toUtf8();
    sqlite3_bind_text(stmt, 1, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    const qint64 found = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int64(stmt, 0) : 0;
    sqlite3_finalize(stmt);
    if (found != 0) {
        return found;
    }
    const qint64 id = nextId();
    exec("INSERT INTO databases (oid, name, type, sort_propid, sort_flags) VALUES (?, ?, 12345, ?, 0)",
         {id, name, sortPropId});
    return id;
}

qint64 SqlLogWriter::addRecord(qint64 database, const QVariant& key) {
    const qint64 record = nextId();
    exec("INSERT INTO records (oid, db, sort_key) VALUES (?, ?, ?)", {record, database, key});
    return record;
}

void SqlLogWriter::writeLog(const QString& log) {
    database(log, StoredDays::propId(64, kFileTime));
}

void SqlLogWriter::writeDay(const QString& log, const QDate& day, const std::vector<Prop>& props) {
    exec("BEGIN IMMEDIATE");
    const qint64 key = StoredDays::keyOf(day);
    const qint64 record = addRecord(database(log, StoredDays::propId(64, kFileTime)), key);
    exec("INSERT INTO props (record, propid, value) VALUES (?, ?, ?)",
         {record, StoredDays::propId(64, kFileTime), key});
    for (const Prop& prop : props) {
        exec("INSERT INTO props (record, propid, value) VALUES (?, ?, ?)",
             {record, StoredDays::propId(prop.number, prop.type), prop.value});
    }
    exec("COMMIT");
}

void SqlLogWriter::writeList(const QString& list, const QStringList& items) {
    exec("BEGIN IMMEDIATE");
    const qint64 item = StoredDays::propId(801, kText);
    const qint64 db = database(list, item);
    for (const QString& text : items) {
        exec("INSERT INTO props (record, propid, value) VALUES (?, ?, ?)", {addRecord(db, text), item, text});
    }
    exec("COMMIT");
}

SqlLogWriter::Prop SqlLogWriter::mealTime(int number, int hour, int minute) {
    return {number, kFileTime, StoredDays::fileTimeOf(QDate(1968, 11, 29), QTime(hour, minute, 12, 12))};
}
