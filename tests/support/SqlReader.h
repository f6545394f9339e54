#pragma once
// Reads a volume file with plain SQL, independently of the platform, so that tests can check what
// was really stored.

#include <QString>
#include <QVariant>

struct sqlite3;

class SqlReader {
public:
    explicit SqlReader(const QString& path);
    ~SqlReader();
    SqlReader(const SqlReader&) = delete;
    SqlReader& operator=(const SqlReader&) = delete;

    // The first column of the first row of sql (with ? bound to args in order), or an invalid
    // QVariant when there is no row. Integers come back as qint64, text as QString.
    QVariant value(const QString& sql, const QVariantList& args = {}) const;
    // The SQLite type name of that value ("integer", "real", "text", "blob", "null").
    QString typeOf(const QString& sql, const QVariantList& args = {}) const;

private:
    sqlite3* m_db = nullptr;
};
