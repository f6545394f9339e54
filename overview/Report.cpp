#include "Report.h"

#include <algorithm>

Report::Report(const QDate& lastDay, int periodDays, std::vector<Point> points)
    : m_status(Status::Collected), m_lastDay(lastDay), m_periodDays(periodDays), m_points(std::move(points)) {
    for (const Point& point : m_points) {
        m_sum += point.value;
        m_largest = std::max(m_largest, point.value);
    }
}
