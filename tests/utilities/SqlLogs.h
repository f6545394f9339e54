#pragma once
// Builds dated logs in a volume file with plain SQL, as anyone with the sqlite3 shell could, and reads
// them back the same way: a database's records, each as its properties "propid=value" in id order.

#include "StoredDays.h"
#include "VolumeFiles.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <utility>
#include <vector>

constexpr int kI2 = 2, kI4 = 3, kR8 = 5, kUI2 = 18, kText = 31, kFileTime = 64, kBlob = 65;
constexpr qint64 kDayKeyId = (64 << 16) | 64;

// One property: number, type, value.
struct P {
    int number;
    int type;
    QVariant value;
};

class SqlLogs {
public:
    explicit SqlLogs(QString path) : m_path(std::move(path)) {}

    void database(const QString& name, qint64 sortPropid = kDayKeyId, int type = 12345) {
        run(QStringLiteral(
                "INSERT INTO databases (oid, name, type, sort_propid, sort_flags) VALUES (%1, '%2', %3, %4, 0)")
                .arg(++m_oid)
                .arg(name)
                .arg(type)
                .arg(sortPropid));
    }
    // A record of the day (its key first), with props after it.
    void day(const QString& db, const QDate& date, const std::vector<P>& props = {}) {
        std::vector<P> all{{64, kFileTime, StoredDays::keyOf(date)}};
        all.insert(all.end(), props.begin(), props.end());
        record(db, all);
    }
    // A record of the database db holding props; its sort key is its day key when it has one.
    void record(const QString& db, const std::vector<P>& props) {
        const qint64 oid = ++m_oid;
        QString key = QStringLiteral("NULL");
        for (const P& p : props) {
            if (p.number == 64 && p.type == kFileTime) {
                key = QString::number(p.value.toLongLong());
            }
        }
        QString sql = QStringLiteral("INSERT INTO records (oid, db, sort_key) VALUES (%1, (SELECT oid FROM databases "
                                     "WHERE name = '%2'), %3);")
                          .arg(oid)
                          .arg(db, key);
        for (const P& p : props) {
            sql += QStringLiteral("INSERT INTO props (record, propid, value) VALUES (%1, %2, %3);")
                       .arg(oid)
                       .arg(StoredDays::propId(p.number, p.type))
                       .arg(literal(p.value));
        }
        run(sql);
    }
    void run(const QString& sql) const { VolumeFiles::runSql(m_path, sql.toUtf8().constData()); }

    // The records of db in the order given ("oid" or the sort order), each "propid=value,..." and
    // joined by " | "; "none" when the database does not exist.
    QString dump(const QString& db, bool creationOrder = false) const {
        SqlReader sql(m_path);
        if (!sql.value("SELECT 1 FROM databases WHERE name = ?", {db}).isValid()) {
            return QStringLiteral("none");
        }
        const QString order = creationOrder ? "r.oid" : "r.sort_key IS NULL, r.sort_key, r.oid";
        return sql
            .value("SELECT ifnull(group_concat(line, ' | '), '') FROM (SELECT (SELECT group_concat(propid || '=' || "
                   "quote(value), ',') FROM (SELECT propid, value FROM props WHERE record = r.oid ORDER BY propid)) "
                   "AS line FROM records r JOIN databases d ON r.db = d.oid WHERE d.name = ? ORDER BY " +
                       order + ")",
                   {db})
            .toString();
    }
    // Every database's name, type, sort property and flags, by name.
    QString catalogue() const {
        return SqlReader(m_path)
            .value("SELECT group_concat(name || ':' || type || ':' || ifnull(sort_propid, '-') || ':' || sort_flags, "
                   "' ') FROM (SELECT * FROM databases ORDER BY name)")
            .toString();
    }

private:
    static QString literal(const QVariant& value) {
        switch (value.typeId()) {
        case QMetaType::QString:
            return "'" + value.toString().replace("'", "''") + "'";
        case QMetaType::Double:
            return QString::number(value.toDouble(), 'g', 17) +
                   (value.toDouble() == qint64(value.toDouble()) ? ".0" : "");
        case QMetaType::QByteArray:
            return "x'" + QString::fromLatin1(value.toByteArray().toHex()) + "'";
        default:
            return QString::number(value.toLongLong());
        }
    }

    QString m_path;
    // Above any id the program gives out in a test, below the 32-bit limit.
    qint64 m_oid = 1'000'000;
};
