#pragma once
// What a report collected: its points in date order, each a day (or the last day of a week) of the
// period with a value above zero, and the count, sum and largest value kept with them.

#include <QDate>

#include <vector>

class Report {
public:
    enum class Status {
        // Nothing has been collected yet.
        NotCollected,
        Collected,
        // The period index is none of the four: the page says "Error" and draws nothing.
        PeriodOutOfRange,
        // A log that exists could not be opened or read.
        ReadFailed
    };

    struct Point {
        QDate date;
        // Days from the period's start: 1 for its first day, the period's length for today.
        int offset = 0;
        double value = 0.0;
    };

    Report() = default;
    explicit Report(Status status) : m_status(status) {}
    // A collected report of the period of periodDays that ends with lastDay.
    Report(const QDate& lastDay, int periodDays, std::vector<Point> points);

    Status status() const { return m_status; }
    int periodDays() const { return m_periodDays; }
    QDate lastDay() const { return m_lastDay; }
    const std::vector<Point>& points() const { return m_points; }
    bool isEmpty() const { return m_points.empty(); }
    double largest() const { return m_largest; }
    // The sum over the number of points; 0 without points.
    double average() const { return m_points.empty() ? 0.0 : m_sum / static_cast<double>(m_points.size()); }

private:
    Status m_status = Status::NotCollected;
    QDate m_lastDay;
    int m_periodDays = 0;
    std::vector<Point> m_points;
    double m_sum = 0.0;
    double m_largest = 0.0;
};
