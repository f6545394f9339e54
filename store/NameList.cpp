#include "NameList.h"

#include "DatabaseCatalogue.h"
#include "RecordDatabase.h"

namespace {
DbRecord itemRecord(const QString& text) {
    DbRecord record;
    record.append(DbProp::text(DatabaseCatalogue::kItemNumber, text));
    return record;
}

DbProp itemProp(const QString& text) {
    return DbProp::text(DatabaseCatalogue::kItemNumber, text);
}
} // namespace

bool NameList::exists() const {
    return RecordDatabase::Exists(m_name);
}

bool NameList::ensureExists() const {
    return DatabaseCatalogue::ensureExists(m_name, DatabaseCatalogue::kItemPropId);
}

bool NameList::ensureExists(const QStringList& defaults) const {
    if (exists()) {
        return true;
    }
    if (!RecordDatabase::Create(m_name, RecordDatabase::kDatabaseType, DatabaseCatalogue::kItemPropId)) {
        return false;
    }
    RecordDatabase db;
    if (!db.Open(m_name, DatabaseCatalogue::kItemPropId)) {
        return false;
    }
    for (const QString& item : defaults) {
        if (db.Write(itemRecord(item), 0) == 0) {
            return false;
        }
    }
    return true;
}

std::optional<QStringList> NameList::items() const {
    RecordDatabase db;
    if (!db.Open(m_name, DatabaseCatalogue::kItemPropId)) {
        return std::nullopt;
    }
    QStringList texts;
    for (CEOID oid = db.SeekFirst(); oid != 0; oid = db.SeekNext()) {
        DbRecord record;
        if (!db.ReadCurrent(record)) {
            return std::nullopt;
        }
        if (const DbProp* item = record.find(DatabaseCatalogue::kItemNumber)) {
            texts << item->toText();
        }
    }
    return texts;
}

NameList::AddResult NameList::add(const QString& text) const {
    RecordDatabase db;
    if (!db.Open(m_name, DatabaseCatalogue::kItemPropId)) {
        return AddResult::Failed;
    }
    if (db.SeekFirstEqual(itemProp(text)) != 0) {
        return AddResult::AlreadyThere;
    }
    return db.Write(itemRecord(text), 0) != 0 ? AddResult::Added : AddResult::Failed;
}

bool NameList::remove(const QString& text) const {
    RecordDatabase db;
    if (!db.Open(m_name, DatabaseCatalogue::kItemPropId)) {
        return false;
    }
    const CEOID oid = db.SeekFirstEqual(itemProp(text));
    return oid != 0 && db.DeleteRecord(oid);
}
