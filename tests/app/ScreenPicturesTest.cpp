// The pictures in docs/screenshots are the program's own screens: the screenshot tour, run on a
// fresh device with the clock fixed, draws each of them again pixel for pixel, at scales 1, 2 and 3.
// Whatever shows on a screen (a text, an order, a width, a colour, a place) is held here, so the page
// tests check what the pages do rather than how they look. After a change meant to show, write the
// pictures again (`cmake --build build --target screenshots`) and look at them before committing.

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
const QString kStored = QStringLiteral(KOVALIN_SCREENSHOTS);
// Pictures that show the moment they were taken (a file dialog's temporary folder and its times),
// and the icon sheet, which the packaging draws.
const QStringList kNotCompared = {"import-file-dialog.png", "icon-sizes.png"};

// The stored pictures of one scale: "-x2" and "-x3" end the names of the larger ones.
QStringList storedAt(int scale) {
    const QRegularExpression larger(QStringLiteral("-x\\d\\.png$"));
    const QString suffix = QStringLiteral("-x%1.png").arg(scale);
    QStringList names;
    for (const QString& name : QDir(kStored).entryList({"*.png"}, QDir::Files, QDir::Name)) {
        if (!kNotCompared.contains(name) && (scale == 1 ? !name.contains(larger) : name.endsWith(suffix))) {
            names << name;
        }
    }
    return names;
}

bool samePixels(const QString& a, const QString& b) {
    const QImage first(a);
    const QImage second(b);
    return !first.isNull() &&
           first.convertToFormat(QImage::Format_ARGB32) == second.convertToFormat(QImage::Format_ARGB32);
}

class ScreenPicturesTest : public ::testing::TestWithParam<int> {};
} // namespace

TEST_P(ScreenPicturesTest, TheTourDrawsEveryStoredPictureAgainPixelForPixel) {
    const int scale = GetParam();
    QTemporaryDir drawn;
    QProcess tour;
    tour.start(QStringLiteral(KOVALIN_PROGRAM), {"--screenshots", drawn.path(), "--scale", QString::number(scale)});
    ASSERT_TRUE(tour.waitForFinished(300000));
    ASSERT_EQ(tour.exitCode(), 0) << tour.readAllStandardError().toStdString();

    const QStringList expected = storedAt(scale);
    ASSERT_FALSE(expected.isEmpty());
    QStringList drawnNames = QDir(drawn.path()).entryList({"*.png"}, QDir::Files, QDir::Name);
    drawnNames.removeIf([](const QString& name) { return kNotCompared.contains(name); });
    EXPECT_EQ(drawnNames, expected);
    QStringList changed;
    for (const QString& name : expected) {
        if (!samePixels(drawn.filePath(name), kStored + "/" + name)) {
            changed << name;
        }
    }
    if (!changed.isEmpty()) {
        drawn.setAutoRemove(false);
    }
    EXPECT_TRUE(changed.isEmpty()) << "drawn differently (see " << drawn.path().toStdString()
                                   << "): " << changed.join(", ").toStdString();
}

INSTANTIATE_TEST_SUITE_P(Scales, ScreenPicturesTest, ::testing::Values(1, 2, 3));
