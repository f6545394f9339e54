#include "ImageList.h"

#include "Bitmaps.h"

ImageList ImageList::fromBitmap(int bitmapId, int cx, std::optional<QRgb> mask) {
    ImageList list;
    list.m_cx = cx;
    const QImage bitmap = Bitmaps::load(bitmapId);
    if (!bitmap.isNull()) {
        list.append(mask ? Bitmaps::withMask(bitmap, *mask) : bitmap);
    }
    return list;
}

int ImageList::addMasked(int bitmapId, QRgb mask) {
    const QImage bitmap = Bitmaps::load(bitmapId);
    if (bitmap.isNull() || m_cx <= 0) {
        return -1;
    }
    return append(Bitmaps::withMask(bitmap, mask));
}

int ImageList::append(const QImage& image) {
    const int first = count();
    for (int x = 0; x + m_cx <= image.width(); x += m_cx) {
        m_images.push_back(Bitmaps::toPixmap(image.copy(x, 0, m_cx, image.height())));
    }
    return first;
}

QPixmap ImageList::image(int index) const {
    return index >= 0 && index < count() ? m_images[static_cast<size_t>(index)] : QPixmap();
}
