#include "ReportPeriod.h"

const QStringList& ReportPeriod::names() {
    static const QStringList kNames = {"Past Week", "Past Four Weeks", "Past 12 Weeks", "Past Year"};
    return kNames;
}

std::optional<ReportPeriod> ReportPeriod::of(int index) {
    if (index < 0 || index >= kCount) {
        return std::nullopt;
    }
    return ReportPeriod(index);
}

qint64 ReportPeriod::seconds() const {
    static constexpr qint64 kSeconds[kCount] = {604800, 2419200, 7257600, 31536000};
    return kSeconds[m_index];
}
