#pragma once
// Where a report's points stand on the page: the chart is 200 pixels wide and 205 high above its base
// line, its scale running from 0 to the largest value plus 5.0. A point's x is its day's offset from
// the period's start over the period's length, times 200; its y is its value over the top of the
// scale, times -205 (upward from the base line). Also the texts the chart writes.

#include "Report.h"

#include <QPointF>
#include <QPolygonF>
#include <QString>

class ReportChart {
public:
    static constexpr int kWidth = 200;
    static constexpr int kHeight = 205;
    static constexpr double kHeadroom = 5.0;
    // A tap finds the nearest point within this many pixels.
    static constexpr double kTapRadius = 6.0;
    // Up to this many points each get a mark; more would run together into a thick line.
    static constexpr int kMostMarkedPoints = 100;

    // origin: the left end of the base line, on the page.
    ReportChart(const Report& report, QPointF origin) : m_report(report), m_origin(origin) {}

    double scaleTop() const { return m_report.largest() + kHeadroom; }
    QPointF position(const Report::Point& point) const;
    // Every point's position, in date order.
    QPolygonF polyline() const;
    bool marksPoints() const { return static_cast<int>(m_report.points().size()) <= kMostMarkedPoints; }
    // The index of the point nearest to tap within kTapRadius; -1 when there is none.
    int pointAt(QPointF tap) const;

    // "Avg: %.1f".
    static QString averageText(double average);
    // "%.1f, %d-%d-%d": the value, then the day's month, day and year.
    static QString pointText(const Report::Point& point);

private:
    const Report& m_report;
    QPointF m_origin;
};
