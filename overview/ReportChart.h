#pragma once
// Where a report's points stand on the page: the chart is 200 pixels wide and 205 high above its base
// line, its scale running from 0 to the largest value plus 5.0. A point's x is its day's offset from
// the period's start over the period's length, times 200; its y is its value over the top of the
// scale, times -205 (upward from the base line). Also the texts the chart writes.

#include "Report.h"

#include <QPointF>
#include <QPolygonF>
#include <QString>

#include <array>

class ReportChart {
public:
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 205;
    static constexpr double kHeadroom = 5.0;
    // A tap finds the nearest point within this many pixels.
    static constexpr double kTapRadius = 6.0;
    // Points get a 4-pixel mark when no two stand closer than this; closer marks would run together
    // into a bar.
    static constexpr double kClosestMarks = 6.0;

    // A date written under the chart: the day, its place on the page (the x of that day's point) and
    // its text.
    struct DayLabel {
        QDate day;
        double x = 0.0;
        QString text;
    };

    // origin: the left end of the base line, on the page.
    ReportChart(const Report& report, QPointF origin) : m_report(report), m_origin(origin) {}

    double scaleTop() const { return m_report.largest() + kHeadroom; }
    QPointF position(const Report::Point& point) const;
    // Every point's position, in date order.
    QPolygonF polyline() const;
    // The page x of day n of the period (1 for its first day; today's is the chart's right end).
    double dayX(int n) const;
    bool marksPoints() const;
    // The period's first day and today, each at its own day's place: a point stands right above the
    // date it belongs to.
    std::array<DayLabel, 2> dayLabels() const;
    // The index of the point nearest to tap within kTapRadius; -1 when there is none.
    int pointAt(QPointF tap) const;

    // "Avg: %.1f".
    static QString averageText(double average);
    // "%.1f, %d-%d-%d": the value, then the day's month, day and year.
    static QString pointText(const Report::Point& point);
    // "M/d", or "M/d/yy" over a year, which spans two of them.
    static QString dateText(const QDate& day, int periodDays);

private:
    const Report& m_report;
    QPointF m_origin;
};
