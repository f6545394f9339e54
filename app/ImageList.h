#pragma once
// An image list as the common controls keep one: images of one size cut from bitmaps, masked on a
// colour when they are added that way.

#include <QPixmap>
#include <QRgb>

#include <optional>
#include <vector>

class ImageList {
public:
    // The list made from bitmapId cut into images cx pixels wide; with a mask colour those pixels
    // are transparent. An empty list when the bitmap does not exist.
    static ImageList fromBitmap(int bitmapId, int cx, std::optional<QRgb> mask = std::nullopt);
    // Appends the images of bitmapId with every pixel of colour mask transparent. Returns the index
    // of the first one added, -1 when the bitmap does not exist or the list has no image size.
    int addMasked(int bitmapId, QRgb mask);

    int count() const { return static_cast<int>(m_images.size()); }
    int imageWidth() const { return m_cx; }
    QPixmap image(int index) const;

private:
    int append(const QImage& image);

    int m_cx = 0;
    std::vector<QPixmap> m_images;
};
