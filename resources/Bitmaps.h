#pragma once
// The program's bitmaps and its icon, by resource id.

#include <QIcon>
#include <QImage>
#include <QPixmap>

class Bitmaps {
public:
    // The colour that marks the transparent pixels of a masked bitmap: pure green.
    static constexpr QRgb kMaskColour = qRgb(0, 255, 0);

    // The bitmap as drawn; a null image for an id that has none.
    static QImage load(int id);
    // The bitmap with every pixel of the mask colour made transparent.
    static QPixmap masked(int id);
    // Icon 128 in its two sizes (32 and 16 pixels), masked.
    static QIcon icon(int id);
    // The bitmap with every pixel of colour made transparent.
    static QImage withMask(const QImage& image, QRgb colour);
    // image as a pixmap for the screen: at a scale above 1 every device pixel becomes a square of
    // screen pixels, so that the drawings stay sharp instead of being smoothed.
    static QPixmap toPixmap(const QImage& image);
};
