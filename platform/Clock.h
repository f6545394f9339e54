#pragma once
// The device's clock. The device's local time is the host's local time. Tests set the time here.

#include "WinTypes.h"

#include <QDateTime>

#include <optional>

class Clock {
public:
    // The current device time (the fixed time, when one is set).
    static QDateTime now();
    // Fixes the clock at time (tests, screenshots); std::nullopt makes it follow the host again.
    static void setFixed(std::optional<QDateTime> time);
};

void GetLocalTime(SYSTEMTIME* st);
