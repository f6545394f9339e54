#pragma once
// The program's icon at the sizes of a desktop icon theme, drawn from the program's own 16- and
// 32-pixel icon bitmaps. Every size is pixel art: a bitmap scaled by a whole factor, or the small
// bitmap centred on a transparent square where no whole factor fits, so no size is ever smoothed.

#include <QImage>
#include <QList>

class AppIcon {
public:
    // The square sizes installed into the hicolor theme, smallest first.
    static QList<int> sizes();
    // The icon size x size, transparent where the bitmaps are masked; a null image for a size
    // smaller than the small bitmap.
    static QImage render(int size);
    // The icons of sizes side by side, once on a light and once on a dark band, for looking at.
    static QImage sheet(const QList<int>& sizes);
};
