#pragma once
// The daily food-and-body records of one user's food database: one record per day, keyed on the
// day, holding the day values and up to fifteen meals.
//
// Each operation opens the database, does its work and closes it. A failure is shown at once in a
// message box with the operation's fixed text, and nothing more is written; saving the day values
// says nothing when the day has no record. A write that fails (a full disk) is told with
// SaveFailure's text.

#include "FoodDay.h"

#include "CeDatabase.h"

#include <QDate>
#include <QString>

#include <optional>

class QObject;
class RecordDatabase;

class FoodRecords {
public:
    static inline const QString kErrorOnAddItems = QStringLiteral("Error accessing food database on Add Items");
    static inline const QString kRecordNotFound = QStringLiteral("Record not found");
    static inline const QString kMaxMealsExceeded = QStringLiteral("Max meals exceeded for this day");
    static inline const QString kErrorOnItemDelete = QStringLiteral("Error accessing food db on item delete");
    static inline const QString kErrorOnItemEdit = QStringLiteral("Error accessing food database on item Edit");

    // The name of the current user's food database, as the main window keeps it. Message boxes are
    // shown over owner.
    explicit FoodRecords(QString name, QObject* owner = nullptr);

    QString name() const { return m_name; }

    // Creates the database when missing, its first record the marker of 29 November 1968. Shows
    // nothing; false when it is missing and cannot be made.
    bool EnsureDatabase() const;
    // The identifier of the day's record; 0 when there is none (or no database). Shows nothing.
    CEOID FindDay(const QDate& day) const;
    // Adds the day's record holding the key and the notes placeholder alone, unless the day has one
    // already. Returns the record's identifier; on a failure "Error accessing food database on Add
    // Items" and 0.
    CEOID CreateDay(const QDate& day) const;
    // The day values and the listed meals of the day. Without a record (or when it cannot be read):
    // "Error accessing food database on Add Items" and std::nullopt.
    std::optional<FoodDay> LoadDay(const QDate& day) const;
    // Showing a day in one opening of the database: creates the database when missing (as
    // EnsureDatabase), finds the day's record, adds it when the day has none (as CreateDay, and
    // created is set) and reads it (as LoadDay). On a failure "Error accessing food database on Add
    // Items" and std::nullopt.
    std::optional<FoodDay> ShowDay(const QDate& day, bool* created) const;
    // Writes the fifteen day values into the day's record, leaving its key and meals as they are.
    // Without a database or a record nothing is written and nothing is said; false then. A write that
    // fails is told, and false.
    bool SaveDay(const QDate& day, const FoodDayValues& values) const;
    // Writes meal into slot (0-14) of the day's record, replacing what the slot held. Without a
    // record: "Record not found"; a slot from 15 on: "Max meals exceeded for this day". Nothing is
    // written then.
    bool PutMeal(const QDate& day, int slot, const Meal& meal) const;
    // Removes the five properties of slot; later slots stay where they are. Without a record: "Error
    // accessing food db on item delete"; a slot from 15 on: "Max meals exceeded for this day".
    bool DeleteMeal(const QDate& day, int slot) const;
    // The meal in slot, for editing it. Without a record or a meal there: "Error accessing food
    // database on item Edit" and std::nullopt.
    std::optional<Meal> ReadMeal(const QDate& day, int slot) const;

private:
    // Opens the database sorted on the day key and reads the day's record into record; the record is
    // then current. False when the database cannot be opened, the day has no record or it cannot be
    // read.
    bool readDay(RecordDatabase& db, const QDate& day, DbRecord& record) const;
    bool fail(const QString& text) const;
    // A new day's record: the key and the notes placeholder alone.
    static DbRecord newDay(const QDate& day);

    QString m_name;
    QObject* m_owner = nullptr;
};
