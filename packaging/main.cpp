// kovalin-icons: writes the program's icon into a hicolor icon theme folder, or a picture of
// several sizes side by side. Runs at build time; it is not installed.
//   kovalin-icons --theme DIR --name NAME     DIR/hicolor/NxN/apps/NAME.png for every size
//   kovalin-icons --sheet FILE SIZE...        the sizes side by side in one PNG

#include "AppIcon.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <cstdio>

namespace {
int usage() {
    std::fprintf(stderr, "usage: kovalin-icons --theme DIR --name NAME | --sheet FILE SIZE...\n");
    return 2;
}

bool save(const QImage& image, const QString& file) {
    if (!QDir().mkpath(QFileInfo(file).absolutePath()) || !image.save(file, "PNG")) {
        std::fprintf(stderr, "kovalin-icons: cannot write %s\n", qPrintable(file));
        return false;
    }
    return true;
}
} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() == 4 && arguments[0] == QLatin1String("--theme") && arguments[2] == QLatin1String("--name")) {
        for (const int size : AppIcon::sizes()) {
            const QString file =
                QStringLiteral("%1/hicolor/%2x%2/apps/%3.png").arg(arguments[1]).arg(size).arg(arguments[3]);
            if (!save(AppIcon::render(size), file)) {
                return 1;
            }
        }
        return 0;
    }
    if (arguments.size() >= 3 && arguments[0] == QLatin1String("--sheet")) {
        QList<int> sizes;
        for (const QString& text : arguments.mid(2)) {
            bool ok = false;
            const int size = text.toInt(&ok);
            if (!ok || AppIcon::render(size).isNull()) {
                return usage();
            }
            sizes.append(size);
        }
        return save(AppIcon::sheet(sizes), arguments[1]) ? 0 : 1;
    }
    return usage();
}
