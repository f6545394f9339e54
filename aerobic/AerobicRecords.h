#pragma once
// The daily aerobic records of one user's aerobic database: one record per day, keyed on the day,
// holding up to three exercises in fixed slots.
//
// Each operation opens the database, does its work and closes it. A failure is shown at once in a
// message box with the operation's fixed text, and nothing more is written; a write that fails (a
// full disk) is told with SaveFailure's text.

#include "AerobicDay.h"

#include "CeDatabase.h"

#include <QDate>
#include <QString>

#include <optional>

class DbRecord;
class QObject;
class RecordDatabase;

class AerobicRecords {
public:
    static inline const QString kErrorFindingNumber = QStringLiteral("Error finding number of exercises");
    static inline const QString kRecordNotFoundError = QStringLiteral("Record not found error");
    static inline const QString kErrorAccessingAerobic = QStringLiteral("Error accessing Aerobic");

    // The name of the current user's aerobic database, as the main window keeps it. Message boxes
    // are shown over owner.
    explicit AerobicRecords(QString name, QObject* owner = nullptr);

    QString name() const { return m_name; }

    // Creates the database when missing, its first record the marker of 29 November 1968. Shows
    // nothing; false when it is missing and cannot be made.
    bool EnsureDatabase() const;
    // The identifier of the day's record; 0 when there is none (or no database). Shows nothing.
    CEOID FindDay(const QDate& day) const;
    // Adds the day's record holding the key alone, unless the day has one already. Returns the
    // record's identifier; on a failure "Error accessing Aerobic" and 0.
    CEOID CreateDay(const QDate& day) const;
    // The day's exercises. Without a record (or when it cannot be read): "Error accessing Aerobic"
    // and std::nullopt.
    std::optional<AerobicDay> ReadDay(const QDate& day) const;
    // Showing a day in one opening of the database: creates the database when missing (as
    // EnsureDatabase), adds the day's record when the day has none (as CreateDay) and reads it (as
    // ReadDay). On a failure "Error accessing Aerobic" and std::nullopt.
    std::optional<AerobicDay> ShowDay(const QDate& day) const;
    // Writes the thirty properties of slot (1-3) into the day's record, leaving every other property
    // as it is. A slot outside 1-3: "Error finding number of exercises"; without a record: "Record not
    // found error"; nothing is written then.
    bool SaveExercise(const QDate& day, int slot, const AerobicExercise& exercise) const;
    // Removes the exercise in slot (1-3) from the day's record: each later exercise moves down one
    // slot, its stored values unchanged, and the last slot that held one is emptied. The key and
    // every other property stay. The same messages as SaveExercise; nothing is written then.
    bool DeleteExercise(const QDate& day, int slot) const;

private:
    bool fail(const QString& text) const;
    // Opens the database on the day's record and reads it, for a change to slot (1-3); on a failure
    // shows the text that says which step failed.
    bool readSlotDay(int slot, const QDate& day, RecordDatabase& db, DbRecord& stored) const;

    QString m_name;
    QObject* m_owner = nullptr;
};
