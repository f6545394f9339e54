// The CSV export against hand-written SQLite on the ten-year device: one user's six files
// (export_user). The store side is the export itself, the whole run with its question answered yes.
// The baseline walks each log with DirectStore in one read transaction, makes every cell by hand
// from the stored values and writes the same bytes with the same kind of file. Before measuring,
// both sides must write identical files. The ratio store / sqlite must stay at most 1.5.

#include "AnsiText.h"
#include "BenchMain.h"
#include "CsvExport.h"
#include "DayKey.h"
#include "DirectStore.h"
#include "RatioRunner.h"
#include "TimeConversion.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

namespace {
constexpr double kLimit = 1.5;

class SilentProgress : public ExportProgress {
public:
    bool confirm(const QString&) override { return true; }
    void status(const QString&) override {}
    void progressRange(int) override {}
    void progressPosition(int) override {}
    void message(const QString& text, MessageKind) override { failure = text != "Export successful!"; }
    bool failure = false;
};

// One column of the baseline's layouts: a value by its stored type, a yes/no value, a start time of
// three numbers (hour, minute, second; 0: none) or a meal's time of day.
struct Column {
    enum Kind { Value, YesNo, Start, MealTime } kind;
    WORD number;
    WORD minute = 0;
    WORD second = 0;
};

std::vector<Column> strengthColumns() {
    std::vector<Column> columns = {{Column::Value, 64},
                                   {Column::Start, 102, 103, 1120},
                                   {Column::Value, 104},
                                   {Column::YesNo, 105},
                                   {Column::Value, 1132}};
    for (int slot = 0; slot < 3; ++slot) {
        for (int row = 0; row < 12; ++row) {
            for (int field = 0; field < 5; ++field) {
                columns.push_back({Column::Value, static_cast<WORD>(106 + 100 * slot + 5 * row + field)});
            }
        }
    }
    return columns;
}

std::vector<Column> aerobicColumns() {
    std::vector<Column> columns = {{Column::Value, 64}};
    const WORD header[3][6] = {
        {102, 103, 104, 105, 1132}, {1136, 1138, 1140, 1144, 1142}, {1137, 1139, 1141, 1145, 1143}};
    for (int slot = 0; slot < 3; ++slot) {
        const WORD first = static_cast<WORD>(701 + 100 * slot);
        const WORD* h = header[slot];
        columns.insert(columns.end(), {{Column::Start, h[0], h[1], static_cast<WORD>(slot == 0 ? 1120 : 0)},
                                       {Column::Value, h[2]},
                                       {Column::YesNo, h[3]},
                                       {Column::Value, first},
                                       {Column::Value, static_cast<WORD>(first + 23)},
                                       {Column::Value, static_cast<WORD>(first + 21)},
                                       {Column::Value, static_cast<WORD>(first + 22)},
                                       {Column::Value, h[4]}});
        for (int minute = 1; minute <= 20; ++minute) {
            columns.push_back({Column::Value, static_cast<WORD>(first + minute)});
        }
    }
    return columns;
}

std::vector<Column> foodColumns() {
    std::vector<Column> columns;
    for (WORD number : {64, 1001, 1002, 1003, 1132, 1151, 1150, 1146, 1148, 1149, 1147, 1153, 1154, 1155, 1156, 1152}) {
        columns.push_back({Column::Value, number});
    }
    for (int meal = 0; meal < 15; ++meal) {
        const WORD time = static_cast<WORD>(1010 + 6 * meal);
        columns.insert(columns.end(), {{Column::MealTime, time},
                                       {Column::Value, static_cast<WORD>(time + 2)},
                                       {Column::Value, static_cast<WORD>(time + 3)},
                                       {Column::Value, static_cast<WORD>(time + 4)},
                                       {Column::Value, static_cast<WORD>(time + 5)}});
    }
    return columns;
}

const DirectProp* findProp(const DirectRecord& props, WORD number) {
    const auto found = std::lower_bound(props.begin(), props.end(), number,
                                        [](const DirectProp& prop, WORD wanted) { return HIWORD(prop.id) < wanted; });
    return found != props.end() && HIWORD(found->id) == number ? &*found : nullptr;
}

std::int64_t integerOf(const DirectProp* prop) {
    const auto* value = prop != nullptr ? std::get_if<std::int64_t>(&prop->value) : nullptr;
    if (value == nullptr) {
        return 0;
    }
    const WORD type = LOWORD(prop->id);
    return type == CEVT_I2 || type == CEVT_UI2 ? (*value & 0xFFFF) : *value;
}

void appendCell(QByteArray& line, const DirectProp* prop, const Column& column, const DirectRecord& props) {
    char buffer[64];
    int length = 0;
    if (prop != nullptr) {
        const WORD type = LOWORD(prop->id);
        SYSTEMTIME time;
        FILETIME stored =
            type == CEVT_FILETIME ? fileTimeFromTicks(static_cast<std::uint64_t>(integerOf(prop))) : FILETIME{};
        if (column.kind == Column::YesNo) {
            length = std::snprintf(buffer, sizeof buffer, "%s", integerOf(prop) == 1 ? "True" : "False");
        } else if (column.kind == Column::Start) {
            length = std::snprintf(buffer, sizeof buffer, "%d:%d:%d", int(integerOf(prop)),
                                   int(integerOf(findProp(props, column.minute))),
                                   int(column.second != 0 ? integerOf(findProp(props, column.second)) : 0));
        } else if (type == CEVT_FILETIME && FileTimeToSystemTime(&stored, &time)) {
            length = column.kind == Column::MealTime
                         ? std::snprintf(buffer, sizeof buffer, "%d:%d", time.wHour, time.wMinute)
                         : std::snprintf(buffer, sizeof buffer, "%d/%d/%d", time.wMonth, time.wDay, time.wYear);
        } else if (type == CEVT_R8) {
            length = std::snprintf(buffer, sizeof buffer, "%.2f", std::get<double>(prop->value));
        } else if (type == CEVT_LPWSTR) {
            const QString& text = std::get<QString>(prop->value);
            line += ",\"" + QByteArray(text.size(), '\0');
            const int start = static_cast<int>(line.size() - text.size());
            if (!text.isEmpty()) {
                line.resize(start + WideCharToMultiByte(CP_ACP, WC_COMPOSITECHECK,
                                                        reinterpret_cast<const WCHAR*>(text.utf16()),
                                                        static_cast<int>(text.size()), line.data() + start,
                                                        static_cast<int>(text.size())));
            }
            line += '"';
            return;
        } else {
            length = std::snprintf(buffer, sizeof buffer, "%lld", static_cast<long long>(integerOf(prop)));
        }
    }
    line += ",\"";
    line.append(buffer, length);
    line += '"';
}

struct Baseline {
    DirectStore& direct;
    std::vector<std::pair<QString, std::vector<Column>>> logs; // database name and columns, per file
    std::vector<QByteArray> headers;
    QString folder;
};

bool exportByHand(Baseline& baseline) {
    const std::int64_t reference = static_cast<std::int64_t>(fileTimeTicks(DayKey::referenceDay()));
    const char* const names[] = {"kovupper.csv",  "kovupper2.csv",  "kovlower.csv",
                                 "kovlower2.csv", "kovaerobic.csv", "kovfood.csv"};
    if (!baseline.direct.beginRead()) {
        return false;
    }
    bool ok = true;
    for (size_t i = 0; i < baseline.logs.size() && ok; ++i) {
        const auto& [name, columns] = baseline.logs[i];
        QFile file(baseline.folder + '/' + names[i]);
        ok = file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(baseline.headers[i]) > 0;
        QByteArray line;
        ok = ok && baseline.direct.walk(baseline.direct.databaseId(name), [&](CEOID, const DirectRecord& props) {
            const DirectProp* key = findProp(props, 64);
            if (key != nullptr && integerOf(key) == reference) {
                return;
            }
            line.clear();
            for (const Column& column : columns) {
                appendCell(line, findProp(props, column.number), column, props);
            }
            line[0] = '"';
            line.remove(1, 1);
            line += '\r';
            file.write(line);
        }) >= 0;
    }
    return baseline.direct.endRead() && ok;
}

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

int main(int argc, char** argv) {
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    BenchDevice& device = bench.device();
    QTemporaryDir storeFolder, baselineFolder;
    const ExportSource names = DatabaseCatalogue::userDatabaseNames(DeviceGenerator::userName(1));
    CsvExport exporter(names, storeFolder.path());
    SilentProgress progress;
    if (!exporter.run(progress) || progress.failure) {
        return bench.fail(QStringLiteral("The export failed."));
    }
    DirectStore& direct = bench.direct();
    Baseline baseline{direct, {}, {}, baselineFolder.path()};
    for (int i = 0; i < kUserDatabaseCount; ++i) {
        const UserDatabase which = static_cast<UserDatabase>(i);
        baseline.logs.emplace_back(names[static_cast<size_t>(i)], which == UserDatabase::Aerobic ? aerobicColumns()
                                                                  : which == UserDatabase::Food  ? foodColumns()
                                                                                                 : strengthColumns());
        const QByteArray written = readAll(storeFolder.filePath(CsvExport::fileName(which)));
        baseline.headers.push_back(written.left(written.indexOf('\r') + 1));
    }
    if (!exportByHand(baseline)) {
        return bench.fail(QStringLiteral("The baseline failed: ") + direct.errorText());
    }
    for (int i = 0; i < kUserDatabaseCount; ++i) {
        const QString name = CsvExport::fileName(static_cast<UserDatabase>(i));
        const QByteArray store = readAll(storeFolder.filePath(name));
        if (store != readAll(baselineFolder.filePath(name)) || store.count('\r') < 3000) {
            return bench.fail(QStringLiteral("The export and the baseline wrote different files: ") + name);
        }
    }
    bench.runner().addPair(
        "export_user",
        [&](benchmark::State& state) {
            for (auto _ : state) {
                SilentProgress silent;
                if (!exporter.run(silent) || silent.failure) {
                    state.SkipWithError("export failed");
                    break;
                }
            }
        },
        [&](benchmark::State& state) {
            for (auto _ : state) {
                if (!exportByHand(baseline)) {
                    state.SkipWithError("baseline failed");
                    break;
                }
            }
        },
        kLimit, benchmark::kMillisecond);
    return bench.run();
}
