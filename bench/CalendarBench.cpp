// The overview pages on the ten-year device with three users:
//   build_month   what the calendar reads to draw a month: the 42 days from the Sunday on or before
//                 the first, each looked up in the user's four strength logs (the set names) and
//                 the aerobic log (the exercise names), through CalendarMonth::build (…_store)
//                 against hand-written SQLite doing the same lookups (…_sqlite), one read
//                 transaction per log on both sides. A random month of a random user each time.
//                 The ratio must stay at most 2.
//   paint_calendar, paint_today
//                 a whole paint of each page rendered off screen, against the same page drawing
//                 nothing: only the reads its paint makes (the calendar building its month, the
//                 Today page reading today's aerobic, upper-body and food records and the goals
//                 file). The ratio is what the drawing adds; limit 4.

#include "BenchMain.h"
#include "BenchPageHost.h"
#include "CalendarMonth.h"
#include "CalendarPage.h"
#include "Clock.h"
#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "DeviceFonts.h"
#include "DirectStore.h"
#include "GoalsFile.h"
#include "PageHost.h"
#include "RatioRunner.h"
#include "SeededRandom.h"
#include "TodayPage.h"
#include "TodaySummary.h"

#include <QApplication>
#include <QDialog>
#include <QImage>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>

namespace {
constexpr double kLimit = 2.0;
constexpr double kPaintLimit = 4.0;
constexpr int kJobs = 512;
constexpr std::uint64_t kSequenceSeed = 20240314;

struct MonthJob {
    int month;
    int year;
    TrainingMarks::Names names;
};

TrainingMarks::Names namesOf(const QString& user) {
    const auto name = [&user](UserDatabase which) { return DatabaseCatalogue::userDatabaseName(which, user); };
    return {name(UserDatabase::UpperA), name(UserDatabase::UpperB), name(UserDatabase::LowerA),
            name(UserDatabase::LowerB), name(UserDatabase::Aerobic)};
}

std::vector<MonthJob> makeJobs(const DeviceGenerator& generator) {
    SeededRandom random(kSequenceSeed);
    const int span = static_cast<int>(generator.firstDay().daysTo(generator.lastDay()));
    std::vector<MonthJob> jobs;
    for (int i = 0; i < kJobs; ++i) {
        const QDate day = generator.firstDay().addDays(random.between(0, span));
        jobs.push_back({day.month(), day.year(), namesOf(DeviceGenerator::userName(random.between(0, 2)))});
    }
    return jobs;
}

// The 42 days by hand: per log one read transaction, the log's id, then per day the record keyed on
// the day and its set names (or exercise names) read as one range of ids. Sets counted as the
// calendar counts them: non-empty names.
bool countByHand(DirectStore& direct, const QString& log, const std::vector<std::int64_t>& keys, WORD first, WORD last,
                 WORD step, std::vector<int>& counts, DirectRecord& props) {
    if (!direct.beginRead()) {
        return false;
    }
    const CEOID database = direct.databaseId(log);
    for (size_t i = 0; database != 0 && i < keys.size(); ++i) {
        const CEOID record = direct.seekFirstEqual(database, keys[i]);
        props.clear();
        if (record == 0 ||
            !direct.readProps(record, PROP_TAG(CEVT_LPWSTR, first), PROP_TAG(CEVT_LPWSTR, last), props)) {
            continue;
        }
        for (const DirectProp& prop : props) {
            const WORD number = HIWORD(prop.id);
            const auto* text = std::get_if<QString>(&prop.value);
            if (LOWORD(prop.id) == CEVT_LPWSTR && (number - first) % step == 0 && text != nullptr &&
                (step == 100 || !text->isEmpty())) {
                ++counts[i];
            }
        }
    }
    return direct.endRead();
}

std::vector<TrainingMarks::Day> monthByHand(DirectStore& direct, const MonthJob& job, DirectRecord& props) {
    const QDate first = CalendarMonth(job.month, job.year).firstCellDay();
    std::vector<std::int64_t> keys;
    for (int i = 0; i < CalendarMonth::kCells; ++i) {
        keys.push_back(static_cast<std::int64_t>(fileTimeTicks(DayKey::of(first.addDays(i)))));
    }
    std::vector<TrainingMarks::Day> days(keys.size());
    std::vector<int> upper(keys.size()), lower(keys.size()), aerobic(keys.size());
    const bool read = countByHand(direct, job.names.upperA, keys, 106, 271, 5, upper, props) &&
                      countByHand(direct, job.names.upperB, keys, 306, 661, 5, upper, props) &&
                      countByHand(direct, job.names.lowerA, keys, 106, 271, 5, lower, props) &&
                      countByHand(direct, job.names.lowerB, keys, 306, 661, 5, lower, props) &&
                      countByHand(direct, job.names.aerobic, keys, 701, 901, 100, aerobic, props);
    if (!read) {
        return {};
    }
    for (size_t i = 0; i < days.size(); ++i) {
        days[i] = {upper[i] > 0, lower[i] > 0, aerobic[i] > 0, upper[i] + lower[i]};
    }
    return days;
}

std::vector<TrainingMarks::Day> daysOf(const CalendarMonth& month) {
    std::vector<TrainingMarks::Day> days;
    for (const CalendarCell& cell : month.cells()) {
        days.push_back({cell.upperBody != 0, cell.lowerBody != 0, cell.aerobic != 0, cell.shownNumber});
    }
    return days;
}

bool same(const std::vector<TrainingMarks::Day>& a, const std::vector<TrainingMarks::Day>& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](const auto& x, const auto& y) {
               return x.upperBody == y.upperBody && x.lowerBody == y.lowerBody && x.aerobic == y.aerobic &&
                      x.sets == y.sets;
           });
}

void paint(benchmark::State& state, QWidget& page) {
    QImage surface(Page::kWidth, Page::kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        page.render(&surface);
        benchmark::DoNotOptimize(surface.constBits());
    }
}
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    BenchDevice& device = bench.device();
    static int qtArgc = 1;
    static char name[] = "CalendarBench";
    static char* qtArgv[] = {name, nullptr};
    QApplication application(qtArgc, qtArgv);
    DeviceFonts::install();
    Clock::setFixed(QDateTime(device.generator().lastDay(), QTime(9, 41)));

    DirectStore& direct = bench.direct();
    const std::vector<MonthJob> jobs = makeJobs(device.generator());
    // Both ways see the same marks and counts, and the months are busy.
    DirectRecord props;
    for (int i = 0; i < 16; ++i) {
        CalendarMonth month(jobs[static_cast<size_t>(i)].month, jobs[static_cast<size_t>(i)].year);
        month.build(jobs[static_cast<size_t>(i)].names);
        const std::vector<TrainingMarks::Day> byHand = monthByHand(direct, jobs[static_cast<size_t>(i)], props);
        if (!same(daysOf(month), byHand) || byHand.front().sets == 0) {
            return bench.fail(QStringLiteral("The calendar and the baseline read different months."));
        }
    }

    using benchmark::State;
    bench.runner().addPair(
        "build_month",
        [&jobs](State& state) {
            size_t i = 0;
            for (auto _ : state) {
                const MonthJob& job = jobs[i++ % jobs.size()];
                CalendarMonth month(job.month, job.year);
                month.build(job.names);
                benchmark::DoNotOptimize(month.cells());
            }
        },
        [&jobs, &direct](State& state) {
            size_t i = 0;
            DirectRecord scratch;
            for (auto _ : state) {
                const std::vector<TrainingMarks::Day> days = monthByHand(direct, jobs[i++ % jobs.size()], scratch);
                if (days.empty()) {
                    state.SkipWithError("sqlite month failed");
                    break;
                }
                benchmark::DoNotOptimize(days);
            }
        },
        kLimit);

    BenchPageHost host;
    CalendarPage calendar(host, nullptr);
    TodayPage today(host, nullptr);
    calendar.resize(Page::kWidth, Page::kHeight);
    today.resize(Page::kWidth, Page::kHeight);
    const auto page = [](const char* name, QWidget& widget) {
        benchmark::RegisterBenchmark(name, [&widget](State& state) { paint(state, widget); })
            ->Unit(benchmark::kMicrosecond)
            ->UseRealTime();
    };
    const auto reads = [](const char* name, std::function<void()> read) {
        benchmark::RegisterBenchmark(name,
                                     [read](State& state) {
                                         for (auto _ : state) {
                                             read();
                                         }
                                     })
            ->Unit(benchmark::kMicrosecond)
            ->UseRealTime();
    };
    page("paint_calendar_page", calendar);
    reads("paint_calendar_reads", [&calendar, &host] {
        CalendarMonth month(calendar.month().month(), calendar.month().year());
        month.build({host.upperBodyADatabaseName(), host.upperBodyBDatabaseName(), host.lowerBodyADatabaseName(),
                     host.lowerBodyBDatabaseName(), host.aerobicDatabaseName()});
        benchmark::DoNotOptimize(month.cells());
    });
    page("paint_today_page", today);
    reads("paint_today_reads", [&host] {
        const QDateTime now = Clock::now();
        benchmark::DoNotOptimize(
            TodaySummary::workoutText(host.aerobicDatabaseName(), host.upperBodyADatabaseName(), now.date()));
        benchmark::DoNotOptimize(TodaySummary::nextMealText(host.foodDatabaseName(), now));
        benchmark::DoNotOptimize(GoalsFile::read());
    });
    bench.runner().addRatio("paint_calendar", "paint_calendar_page", "paint_calendar_reads", RatioRunner::Clock::Cpu,
                            kPaintLimit);
    bench.runner().addRatio("paint_today", "paint_today_page", "paint_today_reads", RatioRunner::Clock::Cpu,
                            kPaintLimit);
    return bench.run();
}
