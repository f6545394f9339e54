#include "ReportChart.h"

#include <cmath>

QPointF ReportChart::position(const Report::Point& point) const {
    const double x = static_cast<double>(point.offset) / m_report.periodDays() * kWidth;
    const double y = point.value / scaleTop() * -kHeight;
    return m_origin + QPointF(x, y);
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
