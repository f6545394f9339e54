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
bool convertDays(RecordDatabase& source, RecordDatabase& a, RecordDatabase& b) {
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
        // A day the pair already holds is left as the pair has it.
        if (a.SeekFirstEqual(*key) != 0 || b.SeekFirstEqual(*key) != 0) {
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
    }
    // The walk ends at the last record or at an error; only the former is the end of the days.
    return GetLastError() == ERROR_NO_MORE_ITEMS || GetLastError() == ERROR_SUCCESS;
}
} // namespace

void UpperBodyConversion::runOnce(const QString& aName, const QString& bName, QObject* owner) {
    if (!RecordDatabase::Exists(kSourceName) ||
        RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, kDoneValue) == 1) {
        return;
    }
    bool done = false;
    {
        // The days and the mark that they were taken are one transaction: all of them, or none.
        VolumeTransaction transaction;
        RecordDatabase source;
        RecordDatabase a;
        RecordDatabase b;
        done = transaction.isActive() && DatabaseCatalogue::ensureDatedLog(aName) &&
               DatabaseCatalogue::ensureDatedLog(bName) && source.Open(kSourceName) && a.Open(aName, DayKey::kPropId) &&
               b.Open(bName, DayKey::kPropId) && convertDays(source, a, b);
        if (done) {
            RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, kDoneValue, 1);
        }
        source.Close();
        a.Close();
        b.Close();
        done = done && transaction.commit();
    }
    if (!done) {
        MessageBoxW(owner, kFailedText, QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
    }
}

void UpperBodyConversion::runOnce(QObject* owner) {
    runOnce(DatabaseCatalogue::userDatabaseName(UserDatabase::UpperA, QString()),
            DatabaseCatalogue::userDatabaseName(UserDatabase::UpperB, QString()), owner);
}
