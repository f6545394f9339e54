#include "SqlLogWriter.h"

#include "SqlReader.h"
#include "StoredDays.h"

#include <QFile>

#include <sqlite3.h>

#include <gtest/gtest.h>

SqlLogWriter::SqlLogWriter(const QString& volume) {
    if (sqlite3_open(QFile::encodeName(volume).constData(), &m_db) != SQLITE_OK) {
        ADD_FAILURE() << "cannot open " << volume.toStdString();
    }
    sqlite3_busy_timeout(m_db, 2000);
    exec("PRAGMA foreign_keys = ON");
}

SqlLogWriter::~SqlLogWriter() {
    sqlite3_close(m_db);
}

void SqlLogWriter::exec(const QString& sql, const QVariantList& args) {
    sqlite3_stmt* stmt = prepareBound(m_db, sql, args);
    if (stmt != nullptr && sqlite3_step(stmt) != SQLITE_DONE) {
        ADD_FAILURE() << "cannot run " << sql.toStdString() << ": " << sqlite3_errmsg(m_db);
    }
    sqlite3_finalize(stmt);
}

void SqlLogWriter::run(const QString& sql) {
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(m_db, sql.toUtf8().constData(), nullptr, nullptr, &message), SQLITE_OK)
        << (message ? message : "");
    sqlite3_free(message);
}

qint64 SqlLogWriter::nextId() {
    const qint64 id = firstValue(m_db, "SELECT 1 + max(coalesce((SELECT max(oid) FROM databases), 0), coalesce((SELECT "
                                       "max(oid) FROM records), 0), coalesce((SELECT value FROM meta WHERE name = "
                                       "'last_oid'), 0))")
                          .toLongLong();
    exec("INSERT OR REPLACE INTO meta (name, value) VALUES ('last_oid', ?)", {id});
    return id;
}

qint64 SqlLogWriter::database(const QString& name, qint64 sortPropId) {
    const QVariant found = firstValue(m_db, "SELECT oid FROM databases WHERE name = ?", {name});
    if (found.isValid()) {
        return found.toLongLong();
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

QString SqlLogWriter::dump(const QString& db, bool creationOrder) const {
    if (!firstValue(m_db, "SELECT 1 FROM databases WHERE name = ?", {db}).isValid()) {
        return QStringLiteral("none");
    }
    const QString order = creationOrder ? "r.oid" : "r.sort_key IS NULL, r.sort_key, r.oid";
    return firstValue(m_db,
                      "SELECT ifnull(group_concat(line, ' | '), '') FROM (SELECT (SELECT group_concat(propid || '=' "
                      "|| quote(value), ',') FROM (SELECT propid, value FROM props WHERE record = r.oid ORDER BY "
                      "propid)) AS line FROM records r JOIN databases d ON r.db = d.oid WHERE d.name = ? ORDER BY " +
                          order + ")",
                      {db})
        .toString();
}

QString SqlLogWriter::dumpAll(const QStringList& dbs, bool creationOrder) const {
    QString all;
    for (const QString& db : dbs) {
        all += dump(db, creationOrder) + "\n";
    }
    return all;
}

QString SqlLogWriter::catalogue() const {
    return firstValue(m_db, "SELECT group_concat(name || ':' || type || ':' || ifnull(sort_propid, '-') || ':' || "
                            "sort_flags, ' ') FROM (SELECT * FROM databases ORDER BY name)")
        .toString();
}

SqlLogWriter::Prop SqlLogWriter::mealTime(int number, int hour, int minute) {
    return {number, kFileTime, StoredDays::fileTimeOf(QDate(1968, 11, 29), QTime(hour, minute, 12, 12))};
}
