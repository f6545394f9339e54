#include "WinCaseCollation.h"

#include <QString>

namespace {
int compare(void*, int sizeA, const void* a, int sizeB, const void* b) {
    const QString textA = QString::fromUtf8(static_cast<const char*>(a), sizeA);
    const QString textB = QString::fromUtf8(static_cast<const char*>(b), sizeB);
    return textA.compare(textB, Qt::CaseInsensitive);
}
} // namespace

int WinCaseCollation::install(sqlite3* db) {
    return sqlite3_create_collation_v2(db, kName, SQLITE_UTF8, nullptr, &compare, nullptr);
}
