#pragma once
// The databases the program creates and opens: their names, how a user's six databases are named,
// the one sort order of each, and creating or deleting them.

#include "CeDatabase.h"

#include <QString>
#include <QStringList>

#include <array>

// The six dated databases every user has, in the order the main window keeps their names.
enum class UserDatabase { UpperA, UpperB, LowerA, LowerB, Aerobic, Food };
constexpr int kUserDatabaseCount = 6;

class DatabaseCatalogue {
public:
    // Property 801: the text of a name-list item (and of a user).
    static constexpr WORD kItemNumber = 801;
    static constexpr CEPROPID kItemPropId = PROP_TAG(CEVT_LPWSTR, kItemNumber);

    // The base name of a user database ("Kov2AUpperBody", ...).
    static QString baseName(UserDatabase which);
    // The suffix a user's database names carry: the name itself, empty for "Default" (exactly) and
    // for the empty name.
    static QString userSuffix(const QString& user);
    static QString userDatabaseName(UserDatabase which, const QString& user);
    // The six names, in UserDatabase order.
    static std::array<QString, kUserDatabaseCount> userDatabaseNames(const QString& user);

    // Creates the database when it does not exist (type 12345, one ascending sort on sortProp).
    // True when it exists afterwards; false when it was missing and could not be created.
    static bool ensureExists(const QString& name, CEPROPID sortProp);
    // Creates a dated log when it does not exist: sorted on the day key, its first record the marker
    // that holds the key of the reference day alone. True when it exists afterwards.
    static bool ensureDatedLog(const QString& name);
    // Deletes the database when it exists; a missing database is skipped silently. True unless
    // an existing database could not be deleted.
    static bool deleteIfExists(const QString& name);
};
