#include "SqlReader.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

sqlite3_stmt* prepareBound(sqlite3* db, const QString& sql, const QVariantList& args) {
    sqlite3_stmt* stmt = nullptr;
    const QByteArray text = sql.toUtf8();
    if (sqlite3_prepare_v2(db, text.constData(), -1, &stmt, nullptr) != SQLITE_OK) {
        ADD_FAILURE() << "cannot prepare " << text.constData() << ": " << sqlite3_errmsg(db);
        return nullptr;
    }
    for (int i = 0; i < args.size(); ++i) {
        const QVariant& arg = args.at(i);
        if (arg.typeId() == QMetaType::QString) {
            const QByteArray utf8 = arg.toString().toUtf8();
            sqlite3_bind_text(stmt, i + 1, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
        } else if (arg.typeId() == QMetaType::QByteArray) {
            const QByteArray bytes = arg.toByteArray();
            sqlite3_bind_blob(stmt, i + 1, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
        } else if (arg.typeId() == QMetaType::Double) {
            sqlite3_bind_double(stmt, i + 1, arg.toDouble());
        } else {
            sqlite3_bind_int64(stmt, i + 1, arg.toLongLong());
        }
    }
    return stmt;
}

QVariant firstValue(sqlite3* db, const QString& sql, const QVariantList& args) {
    sqlite3_stmt* stmt = prepareBound(db, sql, args);
    QVariant result;
    if (stmt != nullptr && sqlite3_step(stmt) == SQLITE_ROW) {
        switch (sqlite3_column_type(stmt, 0)) {
        case SQLITE_INTEGER:
            result = static_cast<qint64>(sqlite3_column_int64(stmt, 0));
            break;
        case SQLITE_FLOAT:
            result = sqlite3_column_double(stmt, 0);
            break;
        case SQLITE_TEXT:
            result = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
            break;
        case SQLITE_BLOB:
            result = QByteArray(static_cast<const char*>(sqlite3_column_blob(stmt, 0)), sqlite3_column_bytes(stmt, 0));
            break;
        default:
            result = QVariant::fromValue(nullptr);
            break;
        }
    }
    sqlite3_finalize(stmt);
    return result;
}

SqlReader::SqlReader(const QString& path) {
    const QByteArray file = path.toUtf8();
    if (sqlite3_open_v2(file.constData(), &m_db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        ADD_FAILURE() << "cannot open " << file.constData();
    }
}

SqlReader::~SqlReader() {
    sqlite3_close(m_db);
}

QString SqlReader::typeOf(const QString& sql, const QVariantList& args) const {
    return value(QStringLiteral("SELECT typeof((%1))").arg(sql), args).toString();
}
