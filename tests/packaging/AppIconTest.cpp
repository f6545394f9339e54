#include "AppIcon.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {
// The pixel a desktop icon must show for a pixel of the program's bitmap: pure green is see-through.
QRgb expectedPixel(const QImage& bitmap, int x, int y) {
    const QRgb pixel = bitmap.pixel(x, y);
    return qRed(pixel) == 0 && qGreen(pixel) == 255 && qBlue(pixel) == 0 ? qRgba(0, 0, 0, 0) : (pixel | 0xff000000u);
}

// Each pixel of the icon at size, drawn from bitmap with factor icon pixels per bitmap pixel, placed at offset.
void expectDrawnFrom(int size, const QString& bitmapPath, int factor, int offset) {
    const QImage bitmap(bitmapPath);
    ASSERT_FALSE(bitmap.isNull()) << qPrintable(bitmapPath);
    const QImage icon = AppIcon::render(size).convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(icon.size(), QSize(size, size));
    const int drawn = bitmap.width() * factor;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const bool inside = x >= offset && y >= offset && x < offset + drawn && y < offset + drawn;
            const QRgb expected =
                inside ? expectedPixel(bitmap, (x - offset) / factor, (y - offset) / factor) : qRgba(0, 0, 0, 0);
            const QRgb actual = qAlpha(icon.pixel(x, y)) == 0 ? qRgba(0, 0, 0, 0) : icon.pixel(x, y);
            ASSERT_EQ(actual, expected) << "size " << size << " at " << x << "," << y;
        }
    }
}
} // namespace

TEST(AppIcon, EveryThemeSizeIsABitmapScaledByAWholeFactorOrCentredUnscaled) {
    EXPECT_EQ(AppIcon::sizes(), (QList<int>{16, 22, 24, 32, 48, 64, 128, 256}));
    EXPECT_TRUE(AppIcon::render(15).isNull()); // no size below the small bitmap
    expectDrawnFrom(16, QStringLiteral(":/bitmaps/icon16.bmp"), 1, 0);
    // No whole factor of 16 fits 22 or 24: the small drawing sits in a clear border of 3 and 4 pixels.
    expectDrawnFrom(22, QStringLiteral(":/bitmaps/icon16.bmp"), 1, 3);
    expectDrawnFrom(24, QStringLiteral(":/bitmaps/icon16.bmp"), 1, 4);
    expectDrawnFrom(32, QStringLiteral(":/bitmaps/icon32.bmp"), 1, 0);
    expectDrawnFrom(48, QStringLiteral(":/bitmaps/icon16.bmp"), 3, 0);
    expectDrawnFrom(64, QStringLiteral(":/bitmaps/icon32.bmp"), 2, 0);
    expectDrawnFrom(128, QStringLiteral(":/bitmaps/icon32.bmp"), 4, 0);
    expectDrawnFrom(256, QStringLiteral(":/bitmaps/icon32.bmp"), 8, 0);
}
