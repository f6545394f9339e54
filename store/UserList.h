#pragma once
// The user list (KovUserList): the shared name list of the people who keep logs on the device. It
// always holds rows: when it is created, and whenever it is found empty, the rows "<add new user>"
// and "Default" are written into it. Adding a user checks that the name can become the names of
// the user's six databases; deleting a user deletes those databases and then the user's row.
// Widget-free, so that the command line shows the list as the select-user dialog does.

#include "DatabaseCatalogue.h"

#include <QString>
#include <QStringList>

#include <optional>

class UserList {
public:
    static inline const QString kDatabaseName = QStringLiteral("KovUserList");
    static inline const QString kAddNewUser = QStringLiteral("<add new user>");
    static inline const QString kDefaultUser = QStringLiteral("Default");
    // A user's longest database name (Kov2AUpperBody or Kov2ALowerBody + the name) must fit the
    // store's 31 characters.
    static constexpr int kMaxNameLength = 17;

    enum class AddResult { Added, AlreadyThere, Refused, Failed };
    enum class DeleteResult { Deleted, RowMissing, Failed };

    // Opens the list, creating it when missing, and writes the two fixed rows when it was created
    // or holds no rows. False when the list cannot be made or read.
    static bool fill();
    // The rows, after fill(), in the order the select-user list box shows them (ignoring case,
    // then by case); std::nullopt when the list cannot be made or read.
    static std::optional<QStringList> names();

    // Why name cannot become a user, as a message to show, or the empty string when it can.
    // Says nothing about whether the name is already in the list.
    static QString refusal(const QString& name);
    // Adds name as a row unless refused or a row of exactly that text is there. Nothing is written
    // for a refused name.
    static AddResult add(const QString& name);

    // The six databases deleting the row text removes: the user's databases under the row's text
    // exactly as it stands (the row "Default" owns the bare base names).
    static std::array<QString, kUserDatabaseCount> databasesOf(const QString& rowText);
    // Deletes each of the row's six databases that exists, then the row itself. RowMissing when
    // the databases are gone but no row has that text; Failed when a database or the row could
    // not be deleted: then nothing is deleted (one transaction).
    static DeleteResult remove(const QString& rowText);

private:
    static DeleteResult removeRow(const QString& rowText);
};
