#pragma once
// Where a drop-down (a list or the month calendar) opens on the device's screen. Qt places pop-ups
// against the desktop's screen, where they run past the device's edges, over the navigation bar or
// down the desktop; on the device a list opens under its control, or above it when there is no room
// below, and stays on the screen below the navigation bar.

#include <QRect>
#include <QSize>

class QWidget;

class ScreenPlacement {
public:
    // The device's screen and its navigation bar, which a drop-down never covers.
    static constexpr QSize kScreenSize{240, 320};
    static constexpr int kNavigationBarHeight = 26;

    // Where a drop-down of widget may open, in global coordinates: its window, below the navigation bar
    // when the window is the device's screen.
    static QRect workAreaOf(const QWidget* widget);
    // A rectangle of size next to anchor within screen: under it when it fits there, else above it
    // when it fits there, else on the side with more room and cut to that room (a list then scrolls).
    // Left-aligned with anchor, moved left as far as needed; never wider than the screen.
    static QRect nextTo(const QRect& anchor, QSize size, const QRect& screen);
};
