#include "ToolBarResource.h"

#include "Bitmaps.h"
#include "resource.h"

#include <QFile>
#include <QHash>
#include <QtEndian>

namespace {
constexpr int kVersion = 1;

QString pathOf(int id) {
    static const QHash<int, QString> paths = {
        {IDR_TODAY_TOOLBAR, QStringLiteral(":/toolbars/today.bin")},
        {IDR_UPPERBODY_TOOLBAR, QStringLiteral(":/toolbars/upperbody.bin")},
        {IDR_LOWERBODY_TOOLBAR, QStringLiteral(":/toolbars/lowerbody.bin")},
        {IDR_FOOD_TOOLBAR, QStringLiteral(":/toolbars/food.bin")},
        {IDR_SETGRID_TOOLBAR, QStringLiteral(":/toolbars/setgrid.bin")},
    };
    return paths.value(id);
}

int wordAt(const QByteArray& bytes, int index) {
    return qFromLittleEndian<quint16>(bytes.constData() + 2 * index);
}
} // namespace

std::optional<ToolBarResource> ToolBarResource::load(int id) {
    QFile file(pathOf(id));
    if (pathOf(id).isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return parse(file.readAll(), id);
}

std::optional<ToolBarResource> ToolBarResource::parse(const QByteArray& bytes, int id) {
    if (bytes.size() < 8 || bytes.size() % 2 != 0 || wordAt(bytes, 0) != kVersion) {
        return std::nullopt;
    }
    const int count = wordAt(bytes, 3);
    if (bytes.size() != 8 + 2 * count) {
        return std::nullopt;
    }
    ToolBarResource toolBar;
    toolBar.m_id = id;
    toolBar.m_width = wordAt(bytes, 1);
    toolBar.m_height = wordAt(bytes, 2);
    for (int i = 0; i < count; ++i) {
        toolBar.m_commands.push_back(wordAt(bytes, 4 + i));
    }
    return toolBar;
}

QPixmap ToolBarResource::buttonImage(int imageIndex) const {
    const QImage strip = Bitmaps::load(m_id);
    if (strip.isNull() || imageIndex < 0 || (imageIndex + 1) * m_width > strip.width()) {
        return {};
    }
    return Bitmaps::toPixmap(
        Bitmaps::withMask(strip.copy(imageIndex * m_width, 0, m_width, m_height), Bitmaps::kMaskColour));
}
