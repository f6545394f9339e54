// The reports' collection against hand-written SQLite on the ten-year device of three users
// (default user), "Past Year" ending on the device's last day:
//   food_year        "Body Weight": the 365 days sought by their key in the food log, the weight read
//   weight_year      "Wt Chest, Set #", set 1: the same in the upper-body A log, the set's exercise and
//                    weight read
//   food_year_paint  food_year, then the page painted with its chart, against the baseline's lookups
//                    and the same page painted with nothing collected (its drop-downs alone)
// Each through the reports page's collection (…_store) and through DirectStore (…_sqlite): one read
// transaction, the log found by name, each day's record sought on records_in_order and the same range
// of properties read; the ratio store / sqlite must stay at most 2.

#include "BenchMain.h"
#include "BenchPageHost.h"
#include "Clock.h"
#include "DayKey.h"
#include "DeviceFonts.h"
#include "DirectStore.h"
#include "PageHost.h"
#include "RatioRunner.h"
#include "ReportCollector.h"
#include "ReportPeriod.h"
#include "ReportsPage.h"
#include "resource.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QImage>

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {
constexpr double kLimit = 2.0;
constexpr int kBodyWeight = 0;
constexpr int kWtChest = 14;
constexpr int kPastYear = 3;

struct Lookup {
    QString log;
    CEPROPID first;
    CEPROPID last;
    // The day's value from the properties read; 0 for none.
    double (*value)(const DirectRecord&);
};

double foodWeight(const DirectRecord& props) {
    for (const DirectProp& prop : props) {
        if (const auto* number = std::get_if<std::int64_t>(&prop.value)) {
            return static_cast<WORD>(*number);
        }
    }
    return 0.0;
}

double setWeight(const DirectRecord& props) {
    const QString* exercise = nullptr;
    for (const DirectProp& prop : props) {
        if (prop.id == PROP_TAG(CEVT_LPWSTR, 106)) {
            exercise = std::get_if<QString>(&prop.value);
        } else if (prop.id == PROP_TAG(CEVT_R8, 108) && exercise != nullptr && !exercise->isEmpty()) {
            return std::get<double>(prop.value);
        }
    }
    return 0.0;
}

// The year's points by hand: one read transaction, the log by name, each day sought and read.
bool collectByHand(DirectStore& direct, const Lookup& lookup, const QDate& today, std::vector<double>& points) {
    points.clear();
    if (!direct.beginRead()) {
        return false;
    }
    const CEOID log = direct.databaseId(lookup.log);
    DirectRecord props;
    bool read = log != 0;
    for (int n = 1; n <= ReportPeriod::kMostDays && read; ++n) {
        const auto key =
            static_cast<std::int64_t>(fileTimeTicks(DayKey::of(ReportPeriod::day(today, ReportPeriod::kMostDays, n))));
        const CEOID record = direct.seekFirstEqual(log, key);
        if (record == 0) {
            continue;
        }
        props.clear();
        read = direct.readProps(record, lookup.first, lookup.last, props);
        if (const double value = lookup.value(props); value > 0.0) {
            points.push_back(value);
        }
    }
    return direct.endRead() && read;
}

ReportChoice yearOf(int measure) {
    ReportChoice choice;
    choice.measure = measure;
    choice.period = kPastYear;
    return choice;
}

std::array<QString, kUserDatabaseCount> logs() {
    return DatabaseCatalogue::userDatabaseNames(DeviceGenerator::userName(0));
}

void collectStore(benchmark::State& state, int measure, const QDate& today) {
    const ReportCollector collector(logs());
    for (auto _ : state) {
        const Report report = collector.collect(yearOf(measure), today);
        if (report.status() != Report::Status::Collected || report.isEmpty()) {
            state.SkipWithError("store collection failed");
            break;
        }
        benchmark::DoNotOptimize(report.average());
    }
}

void collectSqlite(benchmark::State& state, DirectStore& direct, const Lookup& lookup, const QDate& today) {
    std::vector<double> points;
    for (auto _ : state) {
        if (!collectByHand(direct, lookup, today, points) || points.empty()) {
            state.SkipWithError("sqlite collection failed");
            break;
        }
        benchmark::DoNotOptimize(points.data());
    }
}

void paintStore(benchmark::State& state, ReportsPage& page, QImage& image) {
    for (auto _ : state) {
        page.DrawChart();
        page.render(&image);
        if (page.report().isEmpty()) {
            state.SkipWithError("store paint failed");
            break;
        }
    }
}

void paintSqlite(benchmark::State& state, DirectStore& direct, const Lookup& lookup, const QDate& today,
                 ReportsPage& blank, QImage& image) {
    std::vector<double> points;
    for (auto _ : state) {
        if (!collectByHand(direct, lookup, today, points)) {
            state.SkipWithError("sqlite collection failed");
            break;
        }
        blank.render(&image);
    }
}
} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    DeviceFonts::install();
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    BenchDevice& device = bench.device();
    const QDate today = device.generator().lastDay();
    Clock::setFixed(QDateTime(today, QTime(9, 41)));
    DirectStore& direct = bench.direct();
    const Lookup food{BenchPageHost().name(UserDatabase::Food), PROP_TAG(CEVT_I2, 1002), PROP_TAG(CEVT_UI4, 1002),
                      &foodWeight};
    const Lookup weight{BenchPageHost().name(UserDatabase::UpperA), PROP_TAG(CEVT_LPWSTR, 106), PROP_TAG(CEVT_R8, 108),
                        &setWeight};

    // Both ways find the same points, value for value.
    const ReportCollector collector(logs());
    for (const auto& [measure, lookup] : {std::pair{kBodyWeight, food}, std::pair{kWtChest, weight}}) {
        const Report report = collector.collect(yearOf(measure), today);
        std::vector<double> points;
        if (!collectByHand(direct, lookup, today, points) || points.size() != report.points().size() ||
            points.size() < 300) {
            return bench.fail(QStringLiteral("The reports and the baseline collected different years."));
        }
        for (size_t i = 0; i < points.size(); ++i) {
            if (points[i] != report.points()[i].value) {
                return bench.fail(QStringLiteral("The reports and the baseline read different values."));
            }
        }
    }

    BenchPageHost host;
    ReportsPage page(host, nullptr);
    ReportsPage blank(host, nullptr);
    for (ReportsPage* shown : {&page, &blank}) {
        shown->initDialog();
        shown->resize(Page::kWidth, Page::kHeight);
    }
    page.findChild<QComboBox*>(QStringLiteral("c%1").arg(IDC_REPORTS_PERIOD))->setCurrentIndex(kPastYear);
    QImage image(Page::kWidth, Page::kHeight, QImage::Format_RGB32);

    using benchmark::State;
    bench.runner().addPair(
        "food_year", [&](State& state) { collectStore(state, kBodyWeight, today); },
        [&](State& state) { collectSqlite(state, direct, food, today); }, kLimit);
    bench.runner().addPair(
        "weight_year", [&](State& state) { collectStore(state, kWtChest, today); },
        [&](State& state) { collectSqlite(state, direct, weight, today); }, kLimit);
    bench.runner().addPair(
        "food_year_paint", [&](State& state) { paintStore(state, page, image); },
        [&](State& state) { paintSqlite(state, direct, food, today, blank, image); }, kLimit);
    return bench.run();
}
