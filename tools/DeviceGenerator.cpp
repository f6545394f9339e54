#include "DeviceGenerator.h"

#include "BulkRecordWriter.h"
#include "DayKey.h"
#include "DevicePaths.h"
#include "NameList.h"
#include "RecordDatabase.h"
#include "SampleRecords.h"

#include <QFileInfo>

#include <algorithm>

namespace {
constexpr UserDatabase kLogs[] = {UserDatabase::UpperA, UserDatabase::UpperB,  UserDatabase::LowerA,
                                  UserDatabase::LowerB, UserDatabase::Aerobic, UserDatabase::Food};

// The same properties, in whatever order (a read returns them in ascending id order).
bool sameProperties(const DbRecord& read, const DbRecord& written) {
    return read.size() == written.size() &&
           std::all_of(written.props().begin(), written.props().end(), [&read](const DbProp& prop) {
               const DbProp* found = read.find(prop.number());
               return found != nullptr && *found == prop;
           });
}

bool isUpper(UserDatabase which) {
    return which == UserDatabase::UpperA || which == UserDatabase::UpperB;
}

// Unmounts the object store when the scope ends, however it ends.
class MountedObjectStore {
public:
    explicit MountedObjectStore(const QString& path) : m_mounted(CeMountObjectStore(path) != FALSE) {}
    ~MountedObjectStore() {
        if (m_mounted) {
            CeUnmountObjectStore();
        }
    }
    MountedObjectStore(const MountedObjectStore&) = delete;
    MountedObjectStore& operator=(const MountedObjectStore&) = delete;
    bool isMounted() const { return m_mounted; }

private:
    bool m_mounted;
};
} // namespace

DeviceGenerator::DeviceGenerator(Options options) : m_options(std::move(options)) {
    m_last = m_options.end.isValid() ? m_options.end : QDate::currentDate();
    m_first = m_last.addYears(-m_options.years).addDays(1);
}

QString DeviceGenerator::userName(int index) {
    static const QStringList names = {"Default", "Ann", "Bob", "Cid", "Dot", "Eve", "Fay", "Gus", "Hal", "Ida"};
    return index < names.size() ? names.at(index) : QStringLiteral("User%1").arg(index + 1);
}

QStringList DeviceGenerator::userNames() const {
    QStringList names;
    for (int i = 0; i < m_options.users; ++i) {
        names.append(userName(i));
    }
    return names;
}

bool DeviceGenerator::fail(const QString& text) {
    m_error = text;
    return false;
}

bool DeviceGenerator::generate() {
    if (m_options.users < 1 || m_options.years < 1 || !m_first.isValid() || m_first.year() < 1969) {
        return fail(QStringLiteral("Nothing to generate: need at least one user and one year after 1968."));
    }
    if (m_options.miscRestYears < 0 || m_options.miscRestYears >= m_options.years) {
        return fail(QStringLiteral("The Misc groups can rest for fewer years than the period has."));
    }
    const DevicePaths paths(m_options.device);
    if (m_options.device.isEmpty() || !paths.ensureCreated()) {
        return fail(QStringLiteral("Cannot create the device folder \"%1\".").arg(m_options.device));
    }
    if (QFileInfo::exists(paths.objectStore())) {
        return fail(QStringLiteral("The device already has an object store: %1").arg(paths.objectStore()));
    }
    m_records = 0;
    m_properties = 0;
    return createDatabases() && loadRecords() && verify();
}

bool DeviceGenerator::createDatabases() {
    const MountedObjectStore store(DevicePaths(m_options.device).objectStore());
    if (!store.isMounted()) {
        return fail(QStringLiteral("Cannot create the object store (error %1).").arg(GetLastError()));
    }
    const DbRecord marker = SampleRecords::marker();
    for (const QString& user : userNames()) {
        for (const QString& name : DatabaseCatalogue::userDatabaseNames(user)) {
            RecordDatabase db;
            if (!RecordDatabase::Create(name, RecordDatabase::kDatabaseType, DayKey::kPropId) ||
                !db.Open(name, DayKey::kPropId) || db.Write(marker, 0) == 0) {
                return fail(QStringLiteral("Cannot create the database %1 (error %2).").arg(name).arg(GetLastError()));
            }
        }
    }
    // The user list as the program keeps it, so that Switch User offers every generated user.
    const NameList users(QStringLiteral("KovUserList"));
    if (!users.ensureExists(QStringList{QStringLiteral("<add new user>")} + userNames())) {
        return fail(QStringLiteral("Cannot create the user list (error %1).").arg(GetLastError()));
    }
    return true;
}

bool DeviceGenerator::loadRecords() {
    BulkRecordWriter writer(DevicePaths(m_options.device).objectStore());
    if (!writer.open()) {
        return fail(writer.errorText());
    }
    for (int user = 0; user < m_options.users; ++user) {
        for (UserDatabase which : kLogs) {
            const QString name = DatabaseCatalogue::userDatabaseName(which, userName(user));
            const CEOID database = writer.databaseId(name);
            if (database == 0 || !writer.begin()) {
                return fail(writer.errorText());
            }
            for (QDate day = m_first; day <= m_last; day = day.addDays(1)) {
                const DbRecord generated = record(which, user, day);
                if (!writer.addRecord(database, generated, DayKey::kPropId)) {
                    return fail(writer.errorText());
                }
                ++m_records;
                m_properties += generated.size();
            }
            if (!writer.commit()) {
                return fail(writer.errorText());
            }
        }
    }
    return writer.close() || fail(writer.errorText());
}

// Mounts the finished volume through the platform and reads back what a page would read first:
// every log holds the marker and one record per day, and the last day reads as generated.
bool DeviceGenerator::verify() {
    const MountedObjectStore store(DevicePaths(m_options.device).objectStore());
    if (!store.isMounted()) {
        return fail(QStringLiteral("The generated object store does not mount (error %1).").arg(GetLastError()));
    }
    for (int user = 0; user < m_options.users; ++user) {
        for (UserDatabase which : kLogs) {
            const QString name = DatabaseCatalogue::userDatabaseName(which, userName(user));
            RecordDatabase db;
            DbRecord read;
            const bool found =
                db.Open(name, DayKey::kPropId) && db.SeekFirstEqual(DayKey::prop(m_last)) != 0 && db.ReadCurrent(read);
            if (!found || db.recordCount() != static_cast<DWORD>(dayCount() + 1)) {
                return fail(QStringLiteral("The generated database %1 does not read back.").arg(name));
            }
            if (!sameProperties(read, record(which, user, m_last))) {
                return fail(QStringLiteral("The last record of %1 reads back different.").arg(name));
            }
        }
    }
    return true;
}

std::uint64_t DeviceGenerator::recordSeed(UserDatabase which, int user, const QDate& day) const {
    return SeededRandom::mix({m_options.seed, static_cast<std::uint64_t>(user), static_cast<std::uint64_t>(which),
                              static_cast<std::uint64_t>(day.toJulianDay())});
}

QDate DeviceGenerator::lastMiscDay() const {
    return m_options.miscRestYears > 0 ? m_last.addYears(-m_options.miscRestYears) : m_last;
}

DbRecord DeviceGenerator::record(UserDatabase which, int user, const QDate& day) const {
    SeededRandom random(recordSeed(which, user, day));
    const bool miscRests = day > lastMiscDay();
    switch (which) {
    case UserDatabase::UpperA:
        return SampleRecords::strengthA(true, day, random);
    case UserDatabase::UpperB:
        return SampleRecords::strengthB(true, day, random, miscRests);
    case UserDatabase::LowerA:
        return SampleRecords::strengthA(false, day, random);
    case UserDatabase::LowerB:
        return SampleRecords::strengthB(false, day, random, miscRests);
    case UserDatabase::Aerobic:
        return SampleRecords::aerobic(day, random);
    case UserDatabase::Food:
        return SampleRecords::food(day, random);
    }
    return {};
}

DbRecord DeviceGenerator::groupSets(UserDatabase which, int group, std::uint64_t variant) {
    SeededRandom random(variant);
    DbRecord sets;
    SampleRecords::appendGroup(sets, isUpper(which), group, random);
    return sets;
}
