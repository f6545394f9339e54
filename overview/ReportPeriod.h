#pragma once
// The four periods a report covers, in the order of its drop-down. A period ends with today at
// 12:12:13 and starts its length in seconds earlier; its days are the ones reached from the start in
// steps of 86,400 seconds, the start itself left out, so that "Past Year" is 365 days, today the last.

#include <QDate>
#include <QStringList>

#include <optional>

class ReportPeriod {
public:
    static constexpr int kCount = 4;
    static constexpr qint64 kSecondsPerDay = 86400;
    // The longest period's days: one value slot each.
    static constexpr int kMostDays = 365;

    static const QStringList& names();
    // The period at index; std::nullopt outside 0-3.
    static std::optional<ReportPeriod> of(int index);

    int index() const { return m_index; }
    // 604,800, 2,419,200, 7,257,600 or 31,536,000.
    qint64 seconds() const;
    int days() const { return static_cast<int>(seconds() / kSecondsPerDay); }
    // Day n (1 to days()) of the period that ends with today: the last is today.
    static QDate day(const QDate& today, int days, int n) { return today.addDays(n - days); }

private:
    explicit ReportPeriod(int index) : m_index(index) {}

    int m_index;
};
