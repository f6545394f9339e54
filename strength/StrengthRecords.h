#pragma once
// The records of one body region's workouts: a day's A record (the header and groups 0 and 1) and
// its B record (groups 2 to 5), both keyed on the day, in the region's pair of databases.
//
// Each operation opens the database it needs and closes it afterwards. A failure is shown at once
// in a message box with the operation's fixed text, and nothing more is written; a write that fails
// (a full disk) is told with SaveFailure's text.

#include "GroupSets.h"
#include "MuscleGroup.h"
#include "StrengthDay.h"
#include "WorkoutHeader.h"

#include <QDate>
#include <QString>

#include <optional>

class QObject;

class StrengthRecords {
public:
    static inline const QString kErrorAccessingDatabase = QStringLiteral("Error accessing database");
    static inline const QString kDatabaseAccessError = QStringLiteral("Database access error");
    static inline const QString kRecordNotFound = QStringLiteral("Record not found");

    // The names of the region's A and B databases for the current user, as the main window keeps
    // them. Message boxes are shown over owner.
    StrengthRecords(QString aName, QString bName, QObject* owner = nullptr);

    QString aName() const { return m_aName; }
    QString bName() const { return m_bName; }
    // The name of the database that holds group's sets.
    QString databaseOf(const MuscleGroup& group) const { return group.inDatabaseA() ? m_aName : m_bName; }

    // Creates the A and then the B database when missing, each with its marker record (the key of
    // the reference day alone). Shows nothing; false when either cannot be made.
    bool EnsureDatabases() const;
    // Adds the day's A record (key, start now, elapsed 0, not completed, the notes placeholder) and
    // its B record (the key alone) when they are missing. Shows nothing; false on a failure.
    bool EnsureDay(const QDate& day) const;
    // The identifier of the day's A record; 0 when there is none. Shows nothing.
    CEOID FindDayA(const QDate& day) const;
    // EnsureDatabases, EnsureDay, then ReadDay: what a page does to show a day. A failure of the
    // first two shows "Error accessing database".
    std::optional<StrengthDay> LoadDay(const QDate& day) const;
    // The day's header and sets. Without an A record: "Error accessing database" and nothing is
    // read; without a B record, the sets of groups 0 and 1 only.
    std::optional<StrengthDay> ReadDay(const QDate& day) const;
    // Writes the six header properties into the day's A record; without one: "Database access
    // error", nothing written.
    bool WriteHeader(const QDate& day, const WorkoutHeader& header) const;
    // Writes all 60 properties of group into the day's record; without one: "Record not found",
    // nothing written.
    bool WriteGroup(const QDate& day, const MuscleGroup& group, const GroupSets& sets) const;
    // Removes the group's 60 properties from the day's record; without one: "Error accessing
    // database".
    bool ClearGroup(const QDate& day, const MuscleGroup& group) const;

    // Shows text in an error box over owner.
    static void report(QObject* owner, const QString& text);

private:
    bool ensureRecord(const QString& name, const DbRecord& extra, const QDate& day) const;
    bool fail(const QString& text) const;

    QString m_aName;
    QString m_bName;
    QObject* m_owner = nullptr;
};
