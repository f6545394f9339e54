#include "ReportCollector.h"

#include "AerobicDay.h"
#include "AerobicSlot.h"
#include "DayKey.h"
#include "ExerciseLists.h"
#include "FoodDayValues.h"
#include "MuscleGroup.h"
#include "NameList.h"
#include "RecordDatabase.h"
#include "ReportMeasure.h"
#include "ReportPeriod.h"

#include <algorithm>
#include <functional>

namespace {
constexpr int kDaysPerWeek = 7;

// One value slot per day of the longest period; slot n - 1 holds day n.
using DayValues = std::array<double, ReportPeriod::kMostDays>;

// The ids a value may have been stored under: the food page writes 16-bit integers as I2, but reads a
// number of any integer type, and a double as R8.
void addNumericIds(std::vector<CEPROPID>& ids, WORD number) {
    for (const WORD type : {CEVT_I2, CEVT_I4, CEVT_R8, CEVT_UI2, CEVT_UI4}) {
        ids.push_back(PROP_TAG(type, number));
    }
}

// The exercise names of every set of groups first to last (of one database).
std::vector<CEPROPID> exerciseIds(BodyRegion region, int first, int last) {
    std::vector<CEPROPID> ids;
    for (int g = first; g <= last; ++g) {
        const MuscleGroup group(region, g);
        for (int set = 0; set < MuscleGroup::kSets; ++set) {
            ids.push_back(PROP_TAG(CEVT_LPWSTR, group.setNumber(set)));
        }
    }
    return ids;
}

bool holdsText(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop != nullptr && prop->type() == CEVT_LPWSTR && !prop->toText().isEmpty();
}

// Seeks each of the period's days in the log by its day key and hands the found records to take,
// with the day's number (1 to days). Only the properties in wanted are read (all, when it is empty).
// A log that does not exist holds no day; false when one that exists cannot be opened or read.
bool eachDay(const QString& log, const std::vector<CEPROPID>& wanted, const QDate& today, int days,
             const std::function<void(int, const DbRecord&)>& take) {
    if (!RecordDatabase::Exists(log)) {
        return true;
    }
    RecordDatabase db;
    if (!db.Open(log, DayKey::kPropId)) {
        return false;
    }
    DbRecord record;
    for (int n = 1; n <= days; ++n) {
        if (db.SeekFirstEqual(DayKey::prop(ReportPeriod::day(today, days, n))) == 0) {
            continue;
        }
        record.clear();
        if (!(wanted.empty() ? db.ReadCurrent(record) : db.ReadCurrent(record, wanted))) {
            return false;
        }
        take(n, record);
    }
    return true;
}

// The days of a region's pair of logs on which at least one set holds an exercise.
bool strengthDays(const QString& aLog, const QString& bLog, BodyRegion region, const QDate& today, int days,
                  std::array<bool, ReportPeriod::kMostDays>& trained) {
    const auto collect = [&](const QString& log, int first, int last) {
        const std::vector<CEPROPID> ids = exerciseIds(region, first, last);
        return eachDay(log, ids, today, days, [&](int n, const DbRecord& record) {
            const bool any =
                std::any_of(ids.begin(), ids.end(), [&](CEPROPID id) { return holdsText(record, HIWORD(id)); });
            trained[static_cast<size_t>(n - 1)] = trained[static_cast<size_t>(n - 1)] || any;
        });
    };
    return collect(aLog, 0, MuscleGroup::kFirstGroupOfB - 1) &&
           collect(bLog, MuscleGroup::kFirstGroupOfB, MuscleGroup::kGroupsPerRegion - 1);
}
} // namespace

ReportCollector::ReportCollector(std::array<QString, kUserDatabaseCount> databaseNames)
    : m_names(std::move(databaseNames)) {}

Report ReportCollector::collect(const ReportChoice& choice, const QDate& today) const {
    const std::optional<ReportPeriod> period = ReportPeriod::of(choice.period);
    if (!period) {
        return Report(Report::Status::PeriodOutOfRange);
    }
    const int days = period->days();
    const std::optional<ReportMeasure> measure = ReportMeasure::of(choice.measure);
    if (!measure) {
        return Report(today, days, {});
    }

    DayValues values{};
    const auto add = [&values](int n, double value) { values[static_cast<size_t>(n - 1)] += value; };
    bool read = true;
    switch (measure->kind()) {
    case ReportMeasure::Kind::FoodValue: {
        std::vector<CEPROPID> ids;
        for (const WORD number : measure->foodNumbers()) {
            addNumericIds(ids, number);
        }
        read = eachDay(name(UserDatabase::Food), ids, today, days, [&](int n, const DbRecord& record) {
            add(n, measure->foodValue(FoodDayValues::fromRecord(record)));
        });
        break;
    }
    case ReportMeasure::Kind::WeightPerSet: {
        const MuscleGroup group = measure->group();
        const WORD exercise = group.setNumber(std::clamp(choice.set, 1, MuscleGroup::kSets) - 1);
        const WORD weight = exercise + 2;
        const QString log = name(group.database());
        read = eachDay(log, {PROP_TAG(CEVT_LPWSTR, exercise), PROP_TAG(CEVT_R8, weight)}, today, days,
                       [&](int n, const DbRecord& record) {
                           const DbProp* name = record.find(exercise);
                           const DbProp* value = record.find(weight);
                           // A set whose exercise is empty is no set, whatever its weight holds.
                           if (name != nullptr && !name->toText().isEmpty() && value != nullptr &&
                               (choice.exercise.isEmpty() || name->toText() == choice.exercise)) {
                               add(n, value->toDouble());
                           }
                       });
        break;
    }
    case ReportMeasure::Kind::AerobicDistancePerDay:
    case ReportMeasure::Kind::AerobicDistancePerWeek: {
        std::vector<CEPROPID> ids;
        for (const AerobicSlot& slot : AerobicSlot::all()) {
            ids.push_back(PROP_TAG(CEVT_R8, slot.distance()));
        }
        read = eachDay(name(UserDatabase::Aerobic), ids, today, days, [&](int n, const DbRecord& record) {
            for (const DbProp& distance : record.props()) {
                add(n, distance.toDouble());
            }
        });
        break;
    }
    case ReportMeasure::Kind::WorkoutsPerWeek: {
        std::array<bool, ReportPeriod::kMostDays> upper{};
        std::array<bool, ReportPeriod::kMostDays> lower{};
        read = strengthDays(name(UserDatabase::UpperA), name(UserDatabase::UpperB), BodyRegion::Upper, today, days,
                            upper) &&
               strengthDays(name(UserDatabase::LowerA), name(UserDatabase::LowerB), BodyRegion::Lower, today, days,
                            lower) &&
               eachDay(name(UserDatabase::Aerobic), {}, today, days, [&](int n, const DbRecord& record) {
                   const AerobicDay day(ReportPeriod::day(today, days, n), record);
                   for (int slot = 1; slot <= AerobicSlot::kSlots; ++slot) {
                       add(n, day.exercise(slot) ? 1.0 : 0.0);
                   }
               });
        for (int n = 1; n <= days; ++n) {
            const size_t i = static_cast<size_t>(n - 1);
            const int regions = (upper[i] ? 1 : 0) + (lower[i] ? 1 : 0);
            add(n, regions == 2 && choice.workoutsAsOne ? 1 : regions);
        }
        break;
    }
    }
    if (!read) {
        return Report(Report::Status::ReadFailed);
    }

    std::vector<Report::Point> points;
    const auto point = [&](int n, double value) {
        // Absent and zero values give no point; no measure has a meaningful value below zero.
        if (value > 0.0) {
            points.push_back({ReportPeriod::day(today, days, n), n, value});
        }
    };
    if (measure->isPerWeek()) {
        // Whole weeks only, the last ending today: the year's first day, a week of its own, is left out.
        for (int week = days / kDaysPerWeek - 1; week >= 0; --week) {
            const int last = days - kDaysPerWeek * week;
            double sum = 0.0;
            for (int n = last - kDaysPerWeek + 1; n <= last; ++n) {
                sum += values[static_cast<size_t>(n - 1)];
            }
            point(last, sum);
        }
    } else {
        for (int n = 1; n <= days; ++n) {
            point(n, values[static_cast<size_t>(n - 1)]);
        }
    }
    return Report(today, days, std::move(points));
}

QStringList ReportCollector::exercises(const MuscleGroup& group) {
    const NameList list(ExerciseLists::databaseName(group));
    if (!list.exists()) {
        return {};
    }
    return list.items().value_or(QStringList());
}
