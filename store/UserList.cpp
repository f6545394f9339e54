#include "UserList.h"

#include "RecordDatabase.h"
#include "VolumeTransaction.h"

#include <algorithm>

namespace {
DbProp nameProp(const QString& text) {
    return DbProp::text(DatabaseCatalogue::kItemNumber, text);
}

bool writeRow(RecordDatabase& db, const QString& text) {
    DbRecord record;
    record.append(nameProp(text));
    return db.Write(record, 0) != 0;
}

// Characters that a file or database name cannot hold; the user's name becomes both (the
// backup file is named after the user).
bool isForbidden(QChar c) {
    return c.category() == QChar::Other_Control || QStringLiteral("\\/:*?\"<>|").contains(c);
}
} // namespace

bool UserList::fill() {
    if (!DatabaseCatalogue::ensureExists(kDatabaseName, DatabaseCatalogue::kItemPropId)) {
        return false;
    }
    RecordDatabase db;
    if (!db.Open(kDatabaseName, DatabaseCatalogue::kItemPropId)) {
        return false;
    }
    if (db.SeekFirst() != 0) {
        return true;
    }
    return writeRow(db, kAddNewUser) && writeRow(db, kDefaultUser);
}

std::optional<QStringList> UserList::names() {
    if (!fill()) {
        return std::nullopt;
    }
    RecordDatabase db;
    if (!db.Open(kDatabaseName, DatabaseCatalogue::kItemPropId)) {
        return std::nullopt;
    }
    QStringList rows;
    for (CEOID oid = db.SeekFirst(); oid != 0; oid = db.SeekNext()) {
        DbRecord record;
        if (!db.ReadCurrent(record)) {
            return std::nullopt;
        }
        if (const DbProp* name = record.find(DatabaseCatalogue::kItemNumber)) {
            rows << name->toText();
        }
    }
    // The list box sorts as the device's did: ignoring case, and by case among equals.
    std::stable_sort(rows.begin(), rows.end(), [](const QString& a, const QString& b) {
        const int folded = a.compare(b, Qt::CaseInsensitive);
        return folded != 0 ? folded < 0 : a < b;
    });
    return rows;
}

QString UserList::refusal(const QString& name) {
    if (name.isEmpty()) {
        return QStringLiteral("Please type a name for the new user.");
    }
    if (name.size() > kMaxNameLength) {
        return QStringLiteral("A user's name can be at most %1 characters long.").arg(kMaxNameLength);
    }
    if (std::any_of(name.begin(), name.end(), isForbidden)) {
        return QStringLiteral("A user's name cannot contain any of \\ / : * ? \" < > | or control characters.");
    }
    if (name.front().isSpace() || name.back().isSpace()) {
        return QStringLiteral("A user's name cannot begin or end with a blank.");
    }
    return {};
}

UserList::AddResult UserList::add(const QString& name) {
    if (!refusal(name).isEmpty()) {
        return AddResult::Refused;
    }
    if (!fill()) {
        return AddResult::Failed;
    }
    RecordDatabase db;
    if (!db.Open(kDatabaseName, DatabaseCatalogue::kItemPropId)) {
        return AddResult::Failed;
    }
    if (db.SeekFirstEqual(nameProp(name)) != 0) {
        return AddResult::AlreadyThere;
    }
    return writeRow(db, name) ? AddResult::Added : AddResult::Failed;
}

std::array<QString, kUserDatabaseCount> UserList::databasesOf(const QString& rowText) {
    return DatabaseCatalogue::userDatabaseNames(rowText);
}

UserList::DeleteResult UserList::remove(const QString& rowText) {
    // The six logs and the row go in one transaction: a user is deleted whole, or stays whole.
    VolumeTransaction transaction;
    if (!transaction.isActive()) {
        return DeleteResult::Failed;
    }
    for (const QString& name : databasesOf(rowText)) {
        if (!DatabaseCatalogue::deleteIfExists(name)) {
            return DeleteResult::Failed;
        }
    }
    const DeleteResult result = removeRow(rowText);
    if (result != DeleteResult::Failed && !transaction.commit()) {
        return DeleteResult::Failed;
    }
    return result;
}

UserList::DeleteResult UserList::removeRow(const QString& rowText) {
    RecordDatabase db;
    if (!db.Open(kDatabaseName, DatabaseCatalogue::kItemPropId)) {
        return RecordDatabase::Exists(kDatabaseName) ? DeleteResult::Failed : DeleteResult::RowMissing;
    }
    const CEOID oid = db.SeekFirstEqual(nameProp(rowText));
    if (oid == 0) {
        return DeleteResult::RowMissing;
    }
    return db.DeleteRecord(oid) ? DeleteResult::Deleted : DeleteResult::Failed;
}
