#include "ScreenPlacement.h"

#include <QWidget>

#include <algorithm>

QRect ScreenPlacement::workAreaOf(const QWidget* widget) {
    const QWidget* device = widget->window();
    QRect area(device->mapToGlobal(QPoint(0, 0)), device->size());
    if (device->size() == kScreenSize) {
        area.setTop(area.top() + kNavigationBarHeight);
    }
    return area;
}

QRect ScreenPlacement::nextTo(const QRect& anchor, QSize size, const QRect& screen) {
    const int below = screen.bottom() - anchor.bottom();
    const int above = anchor.top() - screen.top();
    const int width = std::min(size.width(), screen.width());
    const int left = std::max(screen.left(), std::min(anchor.left(), screen.right() + 1 - width));
    if (size.height() <= below || below >= above) {
        return QRect(left, anchor.bottom() + 1, width, std::min(size.height(), below));
    }
    const int height = std::min(size.height(), above);
    return QRect(left, anchor.top() - height, width, height);
}
