#pragma once
// One row of a volume's catalogue (the databases table).

#include "WinTypes.h"

#include <QString>

struct DatabaseInfo {
    CEOID oid = 0;
    QString name;
    DWORD type = 0;
    CEPROPID sortPropid = 0; // 0: the database has no sort order
    DWORD sortFlags = 0;
};
