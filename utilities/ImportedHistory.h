#pragma once
// What the files of an import hold, gathered before anything is written: per log and day the
// properties to store, the names to add to the shared lists, and every row that could not be read.
// A day of a log with a row that could not be read is spoiled: it is reported and not written.

#include "DbProp.h"
#include "DbRecord.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <array>
#include <map>
#include <set>
#include <vector>

enum class ImportLog { Upper, Lower, Aerobic, Food };
constexpr int kImportLogs = 4;

// One day of one log: the properties of its record (for strength, the A record) and of the
// strength B record, without the key.
struct ImportedDay {
    std::map<WORD, DbProp> first;
    std::map<WORD, DbProp> second;
    bool spoiled = false;

    void set(const DbProp& prop) { first.insert_or_assign(prop.number(), prop); }
    void setSecond(const DbProp& prop) { second.insert_or_assign(prop.number(), prop); }
    void set(const DbRecord& props);
    void setSecond(const DbRecord& props);
};

struct ImportProblem {
    QString file;
    int line = 0; // 0: the file as a whole
    QString text;
};

class ImportedHistory {
public:
    std::map<QDate, ImportedDay>& days(ImportLog log) { return m_days[static_cast<size_t>(log)]; }
    const std::map<QDate, ImportedDay>& days(ImportLog log) const { return m_days[static_cast<size_t>(log)]; }
    ImportedDay& day(ImportLog log, const QDate& date) { return days(log)[date]; }
    // Marks the day spoiled: a row of it could not be read.
    void spoil(ImportLog log, const QDate& date) { day(log, date).spoiled = true; }

    // The numbers the files carry in log: on a day that is filled or replaced, these are replaced
    // (or removed when the import lacks them) and the others stay. carriesAll: every number.
    void carryAll(ImportLog log) { m_carriesAll[static_cast<size_t>(log)] = true; }
    void carry(ImportLog log, WORD number) { m_carried[static_cast<size_t>(log)].insert(number); }
    bool carries(ImportLog log, WORD number) const;

    void addName(const QString& list, const QString& name);
    const std::map<QString, std::set<QString>>& names() const { return m_names; }

    void problem(const QString& file, int line, const QString& text) { m_problems.push_back({file, line, text}); }
    const std::vector<ImportProblem>& problems() const { return m_problems; }
    // A file read, by the kind of file: "Kovalin's tables", "body.csv".
    void addSource(const QString& kind, const QString& file);
    // "Kovalin's tables: body.csv, meals.csv; the FitNotes export: fitnotes.csv".
    QString sourcesText() const;
    bool hasSources() const { return !m_sources.empty(); }

private:
    std::array<std::map<QDate, ImportedDay>, kImportLogs> m_days;
    std::array<bool, kImportLogs> m_carriesAll{};
    std::array<std::set<WORD>, kImportLogs> m_carried;
    std::map<QString, std::set<QString>> m_names;
    std::vector<ImportProblem> m_problems;
    std::vector<std::pair<QString, QStringList>> m_sources;
};
