#include "HistoryImport.h"

#include "CsvText.h"
#include "DeviceCsvReader.h"
#include "ForeignExports.h"
#include "TablesReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const char* logName(ImportLog log) {
    switch (log) {
    case ImportLog::Upper:
        return "Upper body";
    case ImportLog::Lower:
        return "Lower body";
    case ImportLog::Aerobic:
        return "Aerobic";
    case ImportLog::Food:
        return "Food and body";
    }
    return "";
}

// Consecutive days as runs: "2024-01-08 to 2024-01-10, 2024-01-12".
QString dayRuns(const std::vector<QDate>& days) {
    QStringList runs;
    for (size_t i = 0; i < days.size();) {
        size_t last = i;
        while (last + 1 < days.size() && days[last].daysTo(days[last + 1]) == 1) {
            ++last;
        }
        runs << (last == i
                     ? days[i].toString(Qt::ISODate)
                     : QStringLiteral("%1 to %2").arg(days[i].toString(Qt::ISODate), days[last].toString(Qt::ISODate)));
        i = last + 1;
    }
    return runs.join(QStringLiteral(", "));
}
} // namespace

QString HistoryImport::knownShapes() {
    return QStringLiteral(
        "Known are: Kovalin's tables (workouts.csv, sets.csv, aerobic.csv, body.csv, meals.csv, as export --tables "
        "writes them); the device's CSV export (kovupper.csv, kovupper2.csv, kovlower.csv, kovlower2.csv, "
        "kovaerobic.csv, kovfood.csv); and the CSV exports of FitNotes, Strong, Hevy and openScale.");
}

HistoryImport::HistoryImport(const QString& user, const QStringList& paths, Options options, UtilityReport* report)
    : m_user(user), m_paths(paths), m_options(options), m_report(report) {}

QStringList HistoryImport::files() const {
    QStringList files;
    for (const QString& path : m_paths) {
        if (!QFileInfo(path).isDir()) {
            files << path;
            continue;
        }
        const QDir folder(path);
        for (const QString& name :
             folder.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name | QDir::IgnoreCase)) {
            files << folder.filePath(name);
        }
    }
    return files;
}

bool HistoryImport::readFile(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_history.problem(name, 0, QStringLiteral("cannot be read: %1").arg(file.errorString()));
        return true;
    }
    const QByteArray bytes = file.readAll();
    if (CsvText::isWideText(bytes)) {
        m_history.problem(name, 1, QStringLiteral("is UTF-16 text or holds zero bytes: save it as UTF-8 text"));
        return true;
    }
    CsvProblem refusal;
    if (const auto device = DeviceCsvReader::recognise(name, CsvText::deviceHeaderOf(bytes))) {
        const std::optional<CsvText> text = CsvText::readDevice(bytes, &refusal);
        m_history.addSource(QStringLiteral("the device's CSV files"), name);
        DeviceCsvReader(m_history).read(*device, *text, name);
        return true;
    }
    const QStringList header = CsvText::headerOf(bytes, QLatin1Char(','));
    for (TidyTables::Table table : TidyTables::kAll) {
        if (!TidyTables::matches(table, header)) {
            continue;
        }
        m_history.addSource(QStringLiteral("Kovalin's tables"), name);
        if (const std::optional<CsvText> text = CsvText::readUtf8(bytes, QLatin1Char(','), &refusal)) {
            m_tables->read(table, *text, name);
        } else {
            m_history.problem(name, refusal.line, refusal.text);
        }
        return true;
    }
    const QChar separator = CsvText::separatorOf(bytes);
    if (const auto foreign = ForeignExports::recognise(CsvText::headerOf(bytes, separator))) {
        m_history.addSource(QStringLiteral("the %1 export").arg(ForeignExports::programName(*foreign)), name);
        if (const std::optional<CsvText> text = CsvText::readUtf8(bytes, separator, &refusal)) {
            ForeignExports(m_history).read(*foreign, *text, name);
        } else {
            m_history.problem(name, refusal.line, refusal.text);
        }
        return true;
    }
    return false;
}

HistoryImport::Outcome HistoryImport::run() {
    Outcome outcome;
    for (const QString& path : m_paths) {
        if (!QFileInfo::exists(path)) {
            outcome.refused = true;
            outcome.text = QStringLiteral("%1 does not exist.").arg(QDir::toNativeSeparators(path));
            return outcome;
        }
    }
    TablesReader tables(m_history);
    m_tables = &tables;
    QStringList unknown;
    for (const QString& path : files()) {
        if (!readFile(path)) {
            unknown << QFileInfo(path).fileName();
        }
    }
    tables.finish();
    m_tables = nullptr;
    if (!m_history.hasSources() && m_history.problems().empty()) {
        outcome.refused = true;
        outcome.text = QStringLiteral("%1 holds no file Kovalin can import. %2")
                           .arg(QDir::toNativeSeparators(m_paths.join(QStringLiteral(", "))), knownShapes());
        return outcome;
    }
    for (const QString& name : unknown) {
        m_history.problem(name, 0, QStringLiteral("is of no known shape and was not read"));
    }
    const ImportMerge::Result result =
        ImportMerge(m_user, m_options.replace, m_options.dryRun, m_report).run(m_history);
    outcome.refused = !result.ok;
    outcome.text = reportText(result);
    bool spoiled = false;
    for (const ImportMerge::LogCounts& counts : result.logs) {
        spoiled = spoiled || counts.spoiled > 0;
    }
    outcome.complete = result.ok && m_history.problems().empty() && !spoiled;
    return outcome;
}

QString HistoryImport::reportText(const ImportMerge::Result& result) const {
    QStringList lines;
    lines
        << QStringLiteral("Read %1.").arg(m_history.hasSources() ? m_history.sourcesText() : QStringLiteral("nothing"));
    if (!result.ok) {
        lines << result.error;
        return lines.join(QLatin1Char('\n'));
    }
    for (int i = 0; i < kImportLogs; ++i) {
        const ImportMerge::LogCounts& counts = result.logs[static_cast<size_t>(i)];
        QString line = QStringLiteral("%1: %2 days added, %3 filled, %4 replaced, %5 left as they were")
                           .arg(QLatin1String(logName(static_cast<ImportLog>(i))))
                           .arg(counts.added)
                           .arg(counts.filled)
                           .arg(counts.replaced)
                           .arg(counts.left);
        if (!counts.leftDays.empty()) {
            line += QStringLiteral(" (they hold entries: %1)").arg(dayRuns(counts.leftDays));
        }
        if (counts.spoiled > 0) {
            line += QStringLiteral(", %1 not taken (a row of each could not be read)").arg(counts.spoiled);
        }
        lines << line + QLatin1Char('.');
    }
    lines << QStringLiteral("Names added to the lists: %1.").arg(result.namesAdded);
    if (!m_history.problems().empty()) {
        lines << QStringLiteral("Rows not taken:");
        for (const ImportProblem& problem : m_history.problems()) {
            lines << (problem.line > 0
                          ? QStringLiteral("%1 line %2: %3").arg(problem.file).arg(problem.line).arg(problem.text)
                          : QStringLiteral("%1: %2").arg(problem.file, problem.text));
        }
    }
    if (m_options.dryRun) {
        lines << QStringLiteral("Dry run: nothing was written.");
    }
    return lines.join(QLatin1Char('\n'));
}
