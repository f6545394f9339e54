#include "TablesExport.h"

#include "AerobicSlot.h"
#include "CsvCells.h"
#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "FoodDayValues.h"
#include "Meal.h"
#include "MuscleGroup.h"
#include "NotesPlaceholder.h"
#include "RecordDatabase.h"
#include "RecordEntries.h"
#include "StrengthSet.h"
#include "TableCells.h"
#include "TableFile.h"
#include "TimeConversion.h"
#include "UtilityReport.h"
#include "WorkoutHeader.h"

#include <QDir>

#include <array>
#include <memory>

namespace {
const DbProp* find(const DbRecord& record, WORD number) {
    return CsvCells::find(record, number);
}

// A stored value as its cell: empty when absent, numbers in their shortest form, 16-bit integers
// zero-extended as the pages read them.
QString cell(const DbProp* prop) {
    if (prop == nullptr) {
        return {};
    }
    switch (prop->type()) {
    case CEVT_R8:
        return TableCells::number(prop->toDouble());
    case CEVT_LPWSTR:
        return prop->toText();
    default:
        return CsvCells::value(prop);
    }
}

int integer(const DbProp* prop) {
    if (prop == nullptr) {
        return 0;
    }
    return prop->type() == CEVT_I2 || prop->type() == CEVT_UI2 ? static_cast<int>(prop->toUInt() & 0xFFFF)
                                                                : static_cast<int>(prop->toInt());
}

QString notesCell(const DbProp* prop) {
    const QString notes = cell(prop);
    return notes == kNotesPlaceholder ? QString() : notes;
}

QString startCell(const DbRecord& record, WORD hour, WORD minute) {
    const DbProp* hours = find(record, hour);
    return hours != nullptr ? TableCells::clock(integer(hours), integer(find(record, minute))) : QString();
}

QString elapsedCell(const DbRecord& record, WORD minutes, WORD seconds) {
    const DbProp* stored = find(record, minutes);
    return stored != nullptr ? TableCells::elapsed(integer(stored), integer(find(record, seconds))) : QString();
}

QString yesNoCell(const DbProp* prop) {
    if (prop == nullptr) {
        return {};
    }
    return integer(prop) == 1 ? TableCells::kYes : TableCells::kNo;
}

QString ratingCell(const DbProp* prop) {
    return prop != nullptr && integer(prop) == FoodDayValues::kNoChoice ? TableCells::kNoChoice : cell(prop);
}

// Walks a dated log in day order, skipping the reference-day marker.
class LogWalk {
public:
    explicit LogWalk(const QString& name) : m_open(m_db.Open(name, DayKey::kPropId)) {
        m_oid = m_open ? m_db.SeekFirst() : 0;
    }
    bool isOpen() const { return m_open; }
    // The next record with its day; false at the end or when a read fails (failed() then).
    bool next(DbRecord& record, QDate& day) {
        while (m_oid != 0) {
            record.clear();
            if (!m_db.ReadCurrent(record)) {
                m_failed = true;
                return false;
            }
            m_oid = m_db.SeekNext();
            if (RecordEntries::isMarker(record)) {
                continue;
            }
            const DbProp* key = record.find(DayKey::kNumber);
            if (key == nullptr) {
                continue;
            }
            day = DayKey::dateOf(key->toFileTime());
            return true;
        }
        return false;
    }
    bool failed() const { return m_failed; }

private:
    RecordDatabase m_db;
    bool m_open;
    CEOID m_oid = 0;
    bool m_failed = false;
};

struct FoodColumn {
    WORD number;
    bool rating;
};
// body.csv's value columns after the date, in order; the notes close the row.
constexpr std::array<FoodColumn, 14> kBodyColumns = {{
    {FoodDayValues::kWater, false},
    {FoodDayValues::kWeight, false},
    {FoodDayValues::kBodyFat, false},
    {FoodDayValues::kSleep, false},
    {FoodDayValues::kSleepQuality, true},
    {FoodDayValues::kOverall, true},
    {FoodDayValues::kSystolic, false},
    {FoodDayValues::kDiastolic, false},
    {FoodDayValues::kRestingHeartRate, false},
    {FoodDayValues::kChest, false},
    {FoodDayValues::kBiceps, false},
    {FoodDayValues::kWaist, false},
    {FoodDayValues::kQuads, false},
    {FoodDayValues::kCalves, false},
}};
} // namespace

TablesExport::TablesExport(const QString& user, const QString& folder) : m_user(user), m_folder(folder) {}

bool TablesExport::run(UtilityReport& report) {
    if (!QDir().mkpath(m_folder)) {
        report.message(QStringLiteral("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(m_folder)));
        return false;
    }
    std::array<std::unique_ptr<TableFile>, TidyTables::kTables> files;
    for (TidyTables::Table table : TidyTables::kAll) {
        auto& file = files[static_cast<size_t>(table)];
        file = std::make_unique<TableFile>(QDir(m_folder).filePath(TidyTables::fileName(table)));
        if (!file->create(TidyTables::header(table))) {
            report.message(QStringLiteral("%1 cannot be written: %2.")
                               .arg(QDir::toNativeSeparators(file->path()), file->errorString()));
            return false;
        }
    }
    auto file = [&files](TidyTables::Table table) -> TableFile& { return *files[static_cast<size_t>(table)]; };
    report.status(QStringLiteral("Exporting Upper Body"));
    bool read = writeStrength(file(TidyTables::Table::Workouts), file(TidyTables::Table::Sets), true);
    report.status(QStringLiteral("Exporting Lower Body"));
    read = read && writeStrength(file(TidyTables::Table::Workouts), file(TidyTables::Table::Sets), false);
    report.status(QStringLiteral("Exporting Aerobic"));
    read = read && writeAerobic(file(TidyTables::Table::Aerobic));
    report.status(QStringLiteral("Exporting Food"));
    read = read && writeFood(file(TidyTables::Table::Body), file(TidyTables::Table::Meals));
    bool written = true;
    for (auto& table : files) {
        if (!table->close()) {
            report.message(QStringLiteral("%1 cannot be written: %2.")
                               .arg(QDir::toNativeSeparators(table->path()), table->errorString()));
            written = false;
        }
    }
    if (!read) {
        report.message(QStringLiteral("Data access error"));
        return false;
    }
    if (written) {
        report.status(QStringLiteral("Wrote the tables into %1.").arg(QDir::toNativeSeparators(m_folder)));
    }
    return written;
}

bool TablesExport::writeStrength(TableFile& workouts, TableFile& sets, bool upper) {
    const BodyRegion region = upper ? BodyRegion::Upper : BodyRegion::Lower;
    LogWalk a(DatabaseCatalogue::userDatabaseName(MuscleGroup::databaseA(region), m_user));
    LogWalk b(DatabaseCatalogue::userDatabaseName(MuscleGroup::databaseB(region), m_user));
    DbRecord recordA;
    DbRecord recordB;
    QDate dayA;
    QDate dayB;
    // Both logs are in day order: the B walk follows the A walk.
    bool haveB = b.isOpen() && b.next(recordB, dayB);
    while (a.isOpen() && a.next(recordA, dayA)) {
        while (haveB && dayB < dayA) {
            haveB = b.next(recordB, dayB);
        }
        addStrengthDay(workouts, sets, dayA, upper, recordA, haveB && dayB == dayA ? &recordB : nullptr);
    }
    return !a.failed() && !b.failed();
}

void TablesExport::addStrengthDay(TableFile& workouts, TableFile& sets, const QDate& day, bool upper,
                                  const DbRecord& a, const DbRecord* b) {
    if (!RecordEntries::holdsEntry(LogKind::Strength, a) &&
        (b == nullptr || !RecordEntries::holdsEntry(LogKind::Strength, *b))) {
        return;
    }
    addWorkout(workouts, day, upper, a);
    addSets(sets, day, upper, a, b);
}

void TablesExport::addWorkout(TableFile& file, const QDate& day, bool upper, const DbRecord& a) {
    file.addCell(TableCells::date(day));
    file.addCell(TidyTables::regionName(upper));
    file.addCell(startCell(a, WorkoutHeader::kStartHour, WorkoutHeader::kStartMinute));
    file.addCell(elapsedCell(a, WorkoutHeader::kElapsedMinutes, WorkoutHeader::kElapsedSeconds));
    file.addCell(yesNoCell(find(a, WorkoutHeader::kCompleted)));
    file.addCell(notesCell(find(a, WorkoutHeader::kNotes)));
    file.endRow();
}

void TablesExport::addSets(TableFile& file, const QDate& day, bool upper, const DbRecord& a, const DbRecord* b) {
    const QString date = TableCells::date(day);
    const QString region = TidyTables::regionName(upper);
    for (const MuscleGroup& group : MuscleGroup::ofRegion(upper ? BodyRegion::Upper : BodyRegion::Lower)) {
        const DbRecord* record = group.inDatabaseA() ? &a : b;
        if (record == nullptr) {
            continue;
        }
        std::array<StrengthSet, MuscleGroup::kSets> groupSets;
        StrengthSet::readSets(*record, group.firstNumber(), groupSets);
        for (int set = 0; set < MuscleGroup::kSets; ++set) {
            const StrengthSet& slot = groupSets[static_cast<size_t>(set)];
            if (!slot.isRecorded()) {
                continue;
            }
            file.addCell(date);
            file.addCell(region);
            file.addCell(group.name());
            file.addCell(QString::number(set + 1));
            file.addCell(slot.exercise);
            file.addCell(slot.reps);
            file.addCell(TableCells::number(slot.weight));
            file.addCell(slot.rest);
            file.addCell(QString::number(slot.intensity));
            file.endRow();
        }
    }
}

bool TablesExport::writeAerobic(TableFile& file) {
    LogWalk log(DatabaseCatalogue::userDatabaseName(UserDatabase::Aerobic, m_user));
    DbRecord record;
    QDate day;
    while (log.isOpen() && log.next(record, day)) {
        addAerobicDay(file, day, record);
    }
    return !log.failed();
}

bool TablesExport::writeFood(TableFile& body, TableFile& meals) {
    LogWalk log(DatabaseCatalogue::userDatabaseName(UserDatabase::Food, m_user));
    DbRecord record;
    QDate day;
    while (log.isOpen() && log.next(record, day)) {
        addFoodDay(body, meals, day, record);
    }
    return !log.failed();
}

void TablesExport::addAerobicDay(TableFile& file, const QDate& day, const DbRecord& record) {
    if (!RecordEntries::holdsEntry(LogKind::Aerobic, record)) {
        return;
    }
    for (const AerobicSlot& slot : AerobicSlot::all()) {
        const auto numbers = slot.numbers();
        if (std::none_of(numbers.begin(), numbers.end(),
                         [&record](WORD number) { return find(record, number) != nullptr; })) {
            continue;
        }
        file.addCell(TableCells::date(day));
        file.addCell(QString::number(slot.number()));
        file.addCell(cell(find(record, slot.exercise())));
        file.addCell(cell(find(record, slot.course())));
        file.addCell(cell(find(record, slot.distance())));
        file.addCell(cell(find(record, slot.heartRate())));
        file.addCell(startCell(record, slot.startHour(), slot.startMinute()));
        file.addCell(elapsedCell(record, slot.elapsedMinutes(), slot.elapsedSeconds()));
        file.addCell(yesNoCell(find(record, slot.completed())));
        file.addCell(notesCell(find(record, slot.notes())));
        for (int minute = 1; minute <= AerobicSlot::kMinutes; ++minute) {
            file.addCell(cell(find(record, slot.minute(minute))));
        }
        file.endRow();
    }
}

void TablesExport::addFoodDay(TableFile& body, TableFile& meals, const QDate& day, const DbRecord& record) {
    if (!RecordEntries::holdsEntry(LogKind::Food, record)) {
        return;
    }
    const QString date = TableCells::date(day);
    body.addCell(date);
    for (const FoodColumn& column : kBodyColumns) {
        const DbProp* prop = find(record, column.number);
        body.addCell(column.rating ? ratingCell(prop) : cell(prop));
    }
    body.addCell(notesCell(find(record, FoodDayValues::kNotes)));
    body.endRow();
    for (int slot = 0; slot < Meal::kSlots; ++slot) {
        const DbProp* time = find(record, Meal::timeNumber(slot));
        if (time == nullptr) {
            continue;
        }
        const QTime clock = DayKey::timeOf(time->toFileTime());
        meals.addCell(date);
        meals.addCell(QString::number(slot + 1));
        meals.addCell(TableCells::clock(clock.hour(), clock.minute()));
        for (WORD number : {Meal::proteinNumber(slot), Meal::carbohydrateNumber(slot), Meal::vegetableNumber(slot),
                            Meal::otherNumber(slot)}) {
            meals.addCell(cell(find(record, number)));
        }
        meals.endRow();
    }
}
