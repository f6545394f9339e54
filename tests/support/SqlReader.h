#pragma once
// Reads a volume file with plain SQL, independently of the platform, so that tests can check what
// was really stored.

#include <QString>
#include <QVariant>

struct sqlite3;
struct sqlite3_stmt;

// sql prepared on db with ? bound to args in order (text, real, blob or integer), or nullptr after
// reporting a failure of the test.
sqlite3_stmt* prepareBound(sqlite3* db, const QString& sql, const QVariantList& args);
// The first column of the first row of sql on db, as SqlReader::value gives it.
QVariant firstValue(sqlite3* db, const QString& sql, const QVariantList& args = {});

class SqlReader {
public:
    explicit SqlReader(const QString& path);
    ~SqlReader();
    SqlReader(const SqlReader&) = delete;
    SqlReader& operator=(const SqlReader&) = delete;

    // The first column of the first row of sql (with ? bound to args in order), or an invalid
    // QVariant when there is no row. Integers come back as qint64, text as QString.
    QVariant value(const QString& sql, const QVariantList& args = {}) const { return firstValue(m_db, sql, args); }
    // The SQLite type name of that value ("integer", "real", "text", "blob", "null").
    QString typeOf(const QString& sql, const QVariantList& args = {}) const;

private:
    sqlite3* m_db = nullptr;
};
