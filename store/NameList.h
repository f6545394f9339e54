#pragma once
// A name-list database: one record per item, the item's text in property 801, sorted on it.
// Food items, exercises, aerobic exercises, courses and users are all kept this way.

#include "CeDatabase.h"

#include <QString>
#include <QStringList>

#include <optional>

class NameList {
public:
    enum class AddResult { Added, AlreadyThere, Failed };

    explicit NameList(QString databaseName) : m_name(std::move(databaseName)) {}

    QString databaseName() const { return m_name; }
    bool exists() const;
    // Creates the list empty when it does not exist. False when it is missing and cannot be made.
    bool ensureExists() const;
    // Creates the list when it does not exist and writes defaults into it, one record each, in
    // the order given. An existing list is left as it is.
    bool ensureExists(const QStringList& defaults) const;

    // The items in the list's order (by text, case-sensitive); std::nullopt when it cannot be read.
    std::optional<QStringList> items() const;
    // Adds text as a new item unless an item of exactly that text is there (compared
    // case-sensitively).
    AddResult add(const QString& text) const;
    // Removes the item of exactly that text. False when there is none or it cannot be removed.
    bool remove(const QString& text) const;

private:
    QString m_name;
};
