#include "DeviceFonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>

#include <cmath>

namespace {
constexpr int kDialogPixelSize = 11;
const char* const kFontFiles[] = {"/usr/share/wine/fonts/tahoma.ttf", "/usr/share/wine/fonts/tahomabd.ttf"};

QString& installedFamily() {
    static QString family = QStringLiteral("DejaVu Sans");
    return family;
}
} // namespace

bool DeviceFonts::install() {
    bool loaded = false;
    for (const char* file : kFontFiles) {
        const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(file));
        if (id >= 0 && QFontDatabase::applicationFontFamilies(id).contains(QStringLiteral("Tahoma"))) {
            loaded = true;
        }
    }
    if (loaded) {
        installedFamily() = QStringLiteral("Tahoma");
    }
    QApplication::setFont(dialogFont());
    return loaded;
}

QString DeviceFonts::family() {
    return installedFamily();
}

QFont DeviceFonts::tahoma(int height, bool bold) {
    QFont font(family());
    font.setWeight(bold ? QFont::Bold : QFont::Normal);
    // A cell height includes the internal leading: the em is the height scaled by the font's
    // em-to-cell ratio, measured once at a large size for accuracy.
    font.setPixelSize(100);
    const double cell = QFontMetricsF(font).height();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(height * 100.0 / cell))));
    return font;
}

QFont DeviceFonts::dialogFont() {
    QFont font(family());
    font.setPixelSize(kDialogPixelSize);
    return font;
}
