#include "UpperBodyConversion.h"

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "MessageBox.h"
#include "MuscleGroup.h"
#include "RecordDatabase.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "VolumeTransaction.h"

namespace {
// Groups 2 to 5 of the upper body: the B record's block.
constexpr WORD kFirstOfB = MuscleGroup::kFirstNumberOfB;
constexpr WORD kLastOfB = 705;

bool sameKey(const FILETIME& a, const FILETIME& b) {
    return a.dwLowDateTime == b.dwLowDateTime && a.dwHighDateTime == b.dwHighDateTime;
}

// Converts every day of the open source; false at the first error.
bool convertDays(RecordDatabase& source, RecordDatabase& a, RecordDatabase& b, UpperBodyConversion::Outcome& outcome) {
    DbRecord day;
    for (CEOID oid = source.SeekFirst(); oid != 0; oid = source.SeekNext()) {
        day.clear();
        if (!source.ReadCurrent(day)) {
            return false;
        }
        const DbProp* key = day.find(DayKey::kNumber);
        // The reference day's marker and a record without a key are no workout.
        if (key == nullptr || key->type() != CEVT_FILETIME || sameKey(key->toFileTime(), DayKey::referenceDay())) {
            continue;
        }
        if (a.SeekFirstEqual(*key) != 0 || b.SeekFirstEqual(*key) != 0) {
            ++outcome.kept;
            continue;
        }
        DbRecord recordA;
        DbRecord recordB;
        recordA.append(*key);
        recordB.append(*key);
        for (const DbProp& prop : day.props()) {
            if (prop.number() == DayKey::kNumber) {
                continue;
            }
            const bool inB = prop.number() >= kFirstOfB && prop.number() <= kLastOfB;
            (inB ? recordB : recordA).append(prop);
        }
        if (a.Write(recordA, 0) == 0 || b.Write(recordB, 0) == 0) {
            return false;
        }
        ++outcome.converted;
    }
    // The walk ends at the last record or at an error; only the former is the end of the days.
    return GetLastError() == ERROR_NO_MORE_ITEMS || GetLastError() == ERROR_SUCCESS;
}
} // namespace

UpperBodyConversion::Outcome UpperBodyConversion::runOnce(const QString& aName, const QString& bName, QObject* owner) {
    Outcome outcome;
    if (!RecordDatabase::Exists(kSourceName) ||
        RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, kDoneValue) == 1) {
        return outcome;
    }
    outcome.ran = true;
    {
        // The days and the mark that they were taken are one transaction: all of them, or none.
        VolumeTransaction transaction;
        RecordDatabase source;
        RecordDatabase a;
        RecordDatabase b;
        outcome.done = transaction.isActive() && DatabaseCatalogue::ensureDatedLog(aName) &&
                       DatabaseCatalogue::ensureDatedLog(bName) && source.Open(kSourceName) &&
                       a.Open(aName, DayKey::kPropId) && b.Open(bName, DayKey::kPropId) &&
                       convertDays(source, a, b, outcome);
        if (outcome.done) {
            RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, kDoneValue, 1);
        }
        source.Close();
        a.Close();
        b.Close();
        outcome.done = outcome.done && transaction.commit();
    }
    if (!outcome.done) {
        outcome.converted = 0; // rolled back: nothing was written
        MessageBoxW(owner, kFailedText, QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
    }
    return outcome;
}

UpperBodyConversion::Outcome UpperBodyConversion::runOnce(QObject* owner) {
    return runOnce(DatabaseCatalogue::userDatabaseName(UserDatabase::UpperA, QString()),
                   DatabaseCatalogue::userDatabaseName(UserDatabase::UpperB, QString()), owner);
}
