#include "AppIcon.h"

#include "Bitmaps.h"

#include <QPainter>

namespace {
constexpr int kMargin = 16;
const QRgb kLight = qRgb(0xf6, 0xf5, 0xf4);
const QRgb kDark = qRgb(0x24, 0x1f, 0x31);

QImage bitmap(int side) {
    const QString path = side == 32 ? QStringLiteral(":/bitmaps/icon32.bmp") : QStringLiteral(":/bitmaps/icon16.bmp");
    return Bitmaps::withMask(QImage(path), Bitmaps::kMaskColour);
}
} // namespace

QList<int> AppIcon::sizes() {
    return {16, 22, 24, 32, 48, 64, 128, 256};
}

QImage AppIcon::render(int size) {
    if (size < 16) {
        return QImage();
    }
    // The larger bitmap has the finer drawing: it is used wherever a whole factor of it fits.
    for (const int side : {32, 16}) {
        if (size % side == 0) {
            const QImage source = bitmap(side);
            return source.scaled(size, size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        }
    }
    // 22 and 24 pixels: the themes' own small icons are a 16-pixel drawing with a clear border.
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage((size - 16) / 2, (size - 16) / 2, bitmap(16));
    return image;
}

QImage AppIcon::sheet(const QList<int>& sizes) {
    int width = kMargin;
    int tallest = 0;
    for (const int size : sizes) {
        width += size + kMargin;
        tallest = std::max(tallest, size);
    }
    const int band = tallest + 2 * kMargin;
    QImage image(width, 2 * band, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, width, band, QColor(kLight));
    painter.fillRect(0, band, width, band, QColor(kDark));
    int x = kMargin;
    for (const int size : sizes) {
        // Each icon sits on the bands' common baseline, as icons of several sizes do in a row.
        const int y = kMargin + tallest - size;
        painter.drawImage(x, y, render(size));
        painter.drawImage(x, band + y, render(size));
        x += size + kMargin;
    }
    return image;
}
