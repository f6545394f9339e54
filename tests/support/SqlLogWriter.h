#pragma once
// Writes dated logs and name lists into a volume with plain SQL, as anyone with the sqlite3 shell
// could, independently of the platform: a database sorted on the day key, a day's record with the
// properties given, a list's items. New ids lie above every id in use, as the file format asks.

#include "StoredDays.h"

#include <QFile>
#include <QVariant>

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <initializer_list>

class SqlLogWriter {
public:
    // One property: its number, its type (a CEVT_ code) and its value (text, a number or a double).
    struct Prop {
        int number;
        int type;
        QVariant value;
    };

    explicit SqlLogWriter(const QString& objectStore) {
        EXPECT_EQ(sqlite3_open(QFile::encodeName(objectStore).constData(), &m_db), SQLITE_OK);
        run("PRAGMA foreign_keys = ON", {});
    }
    ~SqlLogWriter() { sqlite3_close(m_db); }
    SqlLogWriter(const SqlLogWriter&) = delete;
    SqlLogWriter& operator=(const SqlLogWriter&) = delete;

    // A database of type 12345 sorted on sortNumber's property, unless one of that name is there.
    void ensureDatabase(const QString& name, qint64 sortPropId = StoredDays::propId(64, 64)) {
        run("INSERT OR IGNORE INTO databases (oid, name, type, sort_propid, sort_flags) VALUES (" + kNewId +
                ", ?, 12345, ?, 0)",
            {name, sortPropId});
    }
    // The day's record in log (made when missing), keyed on the day, holding props.
    void writeDay(const QString& log, const QDate& day, std::initializer_list<Prop> props) {
        ensureDatabase(log);
        const qint64 key = StoredDays::keyOf(day);
        run("INSERT INTO records (oid, db, sort_key) VALUES (" + kNewId +
                ", (SELECT oid FROM databases WHERE name = ?), ?)",
            {log, key});
        const qint64 record = sqlite3_last_insert_rowid(m_db);
        run("INSERT INTO props VALUES (?, ?, ?)", {record, StoredDays::propId(64, 64), key});
        for (const Prop& prop : props) {
            run("INSERT INTO props VALUES (?, ?, ?)", {record, StoredDays::propId(prop.number, prop.type), prop.value});
        }
    }
    // A name list (sorted on property 801) holding items.
    void writeList(const QString& list, const QStringList& items) {
        const qint64 item = StoredDays::propId(801, 31);
        ensureDatabase(list, item);
        for (const QString& text : items) {
            run("INSERT INTO records (oid, db, sort_key) VALUES (" + kNewId +
                    ", (SELECT oid FROM databases WHERE name = ?), ?)",
                {list, text});
            run("INSERT INTO props VALUES (?, ?, ?)", {sqlite3_last_insert_rowid(m_db), item, text});
        }
    }

private:
    inline static const QString kNewId =
        "(SELECT 1 + max((SELECT coalesce(max(oid), 0) FROM databases), (SELECT coalesce(max(oid), 0) FROM records), "
        "coalesce((SELECT value FROM meta WHERE name = 'last_oid'), 0)))";

    void run(const QString& sql, const QVariantList& args) {
        sqlite3_stmt* stmt = nullptr;
        const QByteArray text = sql.toUtf8();
        ASSERT_EQ(sqlite3_prepare_v2(m_db, text.constData(), -1, &stmt, nullptr), SQLITE_OK) << sqlite3_errmsg(m_db);
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
        EXPECT_EQ(sqlite3_step(stmt), SQLITE_DONE) << text.constData() << ": " << sqlite3_errmsg(m_db);
        sqlite3_finalize(stmt);
    }

    sqlite3* m_db = nullptr;
};
