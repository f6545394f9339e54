#include "ReportChart.h"

#include "ReportPeriod.h"

#include <cmath>

QPointF ReportChart::position(const Report::Point& point) const {
    const double y = point.value / scaleTop() * -kHeight;
    return QPointF(dayX(point.offset), m_origin.y() + y);
}

double ReportChart::dayX(int n) const {
    return m_origin.x() + static_cast<double>(n) / m_report.periodDays() * kWidth;
}

bool ReportChart::marksPoints() const {
    const std::vector<Report::Point>& points = m_report.points();
    for (size_t i = 1; i < points.size(); ++i) {
        if (dayX(points[i].offset) - dayX(points[i - 1].offset) < kClosestMarks) {
            return false;
        }
    }
    return true;
}

std::array<ReportChart::DayLabel, 2> ReportChart::dayLabels() const {
    const int days = m_report.periodDays();
    const QDate first = ReportPeriod::day(m_report.lastDay(), days, 1);
    return {DayLabel{first, dayX(1), dateText(first, days)},
            DayLabel{m_report.lastDay(), dayX(days), dateText(m_report.lastDay(), days)}};
}

QPolygonF ReportChart::polyline() const {
    QPolygonF line;
    line.reserve(static_cast<qsizetype>(m_report.points().size()));
    for (const Report::Point& point : m_report.points()) {
        line.append(position(point));
    }
    return line;
}

int ReportChart::pointAt(QPointF tap) const {
    int nearest = -1;
    double best = kTapRadius;
    const std::vector<Report::Point>& points = m_report.points();
    for (size_t i = 0; i < points.size(); ++i) {
        const QPointF apart = position(points[i]) - tap;
        const double distance = std::hypot(apart.x(), apart.y());
        // The earlier point wins a tie.
        if (distance <= best && (nearest < 0 || distance < best)) {
            nearest = static_cast<int>(i);
            best = distance;
        }
    }
    return nearest;
}

QString ReportChart::averageText(double average) {
    return QString::asprintf("Avg: %.1f", average);
}

QString ReportChart::pointText(const Report::Point& point) {
    return QString::asprintf("%.1f, %d-%d-%d", point.value, point.date.month(), point.date.day(), point.date.year());
}

QString ReportChart::dateText(const QDate& day, int periodDays) {
    return day.toString(periodDays > 84 ? QStringLiteral("M/d/yy") : QStringLiteral("M/d"));
}
