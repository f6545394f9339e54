#include "Bitmaps.h"

#include "resource.h"

#include <QGuiApplication>
#include <QHash>

#include <cmath>

namespace {
QString pathOf(int id) {
    static const QHash<int, QString> paths = {
        {IDB_TODAY, QStringLiteral(":/bitmaps/tab_today.bmp")},
        {IDB_UPPERBODY, QStringLiteral(":/bitmaps/tab_upper.bmp")},
        {IDB_LOWERBODY, QStringLiteral(":/bitmaps/tab_lower.bmp")},
        {IDB_AEROBIC, QStringLiteral(":/bitmaps/tab_aerobic.bmp")},
        {IDB_FOOD, QStringLiteral(":/bitmaps/tab_food.bmp")},
        {IDB_REPORTS, QStringLiteral(":/bitmaps/tab_reports.bmp")},
        {IDB_CALENDAR, QStringLiteral(":/bitmaps/tab_calendar.bmp")},
        {IDB_TODAY_TOOLBAR, QStringLiteral(":/bitmaps/toolbar_today.bmp")},
        {IDB_UPPERBODY_TOOLBAR, QStringLiteral(":/bitmaps/toolbar_upper.bmp")},
        {IDB_LOWERBODY_TOOLBAR, QStringLiteral(":/bitmaps/toolbar_lower.bmp")},
        {IDB_FOOD_TOOLBAR, QStringLiteral(":/bitmaps/toolbar_food.bmp")},
        {IDB_STARTUP, QStringLiteral(":/bitmaps/startup.bmp")},
        {IDB_INPUTPANEL, QStringLiteral(":/bitmaps/inputpanel.bmp")},
        {IDB_SETGRID_BAR, QStringLiteral(":/bitmaps/setgrid_bar.bmp")},
        {IDB_SETGRID_TOOLBAR, QStringLiteral(":/bitmaps/toolbar_setgrid.bmp")},
        {IDB_NOW, QStringLiteral(":/bitmaps/now.bmp")},
        {IDB_MEAL, QStringLiteral(":/bitmaps/food.bmp")},
        {IDB_TODAY_TODAY, QStringLiteral(":/bitmaps/today.bmp")},
        {IDB_TODAY_WORKOUT, QStringLiteral(":/bitmaps/workout.bmp")},
        {IDB_TODAY_GOALS, QStringLiteral(":/bitmaps/goals.bmp")},
        {IDB_CAL_UPPER, QStringLiteral(":/bitmaps/cal_upper.bmp")},
        {IDB_CAL_LOWER, QStringLiteral(":/bitmaps/cal_lower.bmp")},
        {IDB_CAL_AEROBIC, QStringLiteral(":/bitmaps/cal_aerobic.bmp")},
        {IDB_CAL_UPPER_OTHER, QStringLiteral(":/bitmaps/cal_upper_other.bmp")},
        {IDB_CAL_LOWER_OTHER, QStringLiteral(":/bitmaps/cal_lower_other.bmp")},
        {IDB_CAL_AEROBIC_OTHER, QStringLiteral(":/bitmaps/cal_aerobic_other.bmp")},
    };
    return paths.value(id);
}
} // namespace

QImage Bitmaps::load(int id) {
    const QString path = pathOf(id);
    return path.isEmpty() ? QImage() : QImage(path);
}

QPixmap Bitmaps::masked(int id) {
    return toPixmap(withMask(load(id), kMaskColour));
}

QIcon Bitmaps::icon(int id) {
    QIcon icon;
    if (id != IDR_MAINFRAME) {
        return icon;
    }
    for (const char* path : {":/bitmaps/icon32.bmp", ":/bitmaps/icon16.bmp"}) {
        icon.addPixmap(toPixmap(withMask(QImage(QString::fromLatin1(path)), kMaskColour)));
    }
    return icon;
}

QImage Bitmaps::withMask(const QImage& image, QRgb colour) {
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            if ((line[x] & 0x00FFFFFFu) == (colour & 0x00FFFFFFu)) {
                line[x] = qRgba(0, 0, 0, 0);
            }
        }
    }
    return result;
}

QPixmap Bitmaps::toPixmap(const QImage& image) {
    const qreal ratio = qGuiApp != nullptr ? qGuiApp->devicePixelRatio() : 1.0;
    const int factor = std::max(1, static_cast<int>(std::lround(ratio)));
    if (factor == 1 || image.isNull()) {
        return QPixmap::fromImage(image);
    }
    QPixmap pixmap =
        QPixmap::fromImage(image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    pixmap.setDevicePixelRatio(factor);
    return pixmap;
}
