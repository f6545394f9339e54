#pragma once
// Builds a device folder whose object store holds years of daily records for several users: every
// day of the period has a record in each of a user's six logs. Used by kovalin-devicegen (a demo
// device) and by the benchmarks (the ten-year device they measure on).
//
// The databases and their marker records are created through the record store; the daily records
// are then bulk-loaded with plain SQL into the volume, one transaction per database (see
// BulkRecordWriter). The content is a pure function of the seed, the user, the log and the day.

#include "DatabaseCatalogue.h"
#include "DbRecord.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <cstdint>

class DeviceGenerator {
public:
    struct Options {
        QString device; // the device folder; created when missing
        int users = 3;  // "Default", then "Ann", "Bob", ...
        int years = 10; // the period ends on `end` and starts `years` years earlier, the day after
        QDate end;      // invalid: today
        std::uint64_t seed = 1;
        // The last group of each region (upper Misc, lower Misc 2) is not trained in the last
        // miscRestYears years of the period: those days' B records hold no sets of it.
        int miscRestYears = 0;
    };

    explicit DeviceGenerator(Options options);

    // Builds the device. Refuses a device whose object store already exists. False, with
    // errorText(), when anything fails; the device is then incomplete.
    bool generate();
    QString errorText() const { return m_error; }

    // The name of user index (0 is "Default").
    static QString userName(int index);
    QStringList userNames() const;
    QDate firstDay() const { return m_first; }
    QDate lastDay() const { return m_last; }
    int dayCount() const { return static_cast<int>(m_first.daysTo(m_last)) + 1; }
    // The last day on which the Misc groups were trained (lastDay() when they never rest).
    QDate lastMiscDay() const;
    std::int64_t recordsWritten() const { return m_records; }
    std::int64_t propertiesWritten() const { return m_properties; }

    // The record generate() writes for user index in log `which` on day, key first.
    DbRecord record(UserDatabase which, int user, const QDate& day) const;
    // The sixty properties of the twelve sets of strength group 0-5 of the region of `which`
    // (an upper- or lower-body log), drawn from `variant`.
    static DbRecord groupSets(UserDatabase which, int group, std::uint64_t variant);

private:
    bool createDatabases();
    bool loadRecords();
    bool verify();
    std::uint64_t recordSeed(UserDatabase which, int user, const QDate& day) const;
    bool fail(const QString& text);

    Options m_options;
    QDate m_first;
    QDate m_last;
    QString m_error;
    std::int64_t m_records = 0;
    std::int64_t m_properties = 0;
};
