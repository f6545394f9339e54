#include "DeviceMessageBox.h"
#include "DeviceMessageBoxPresenter.h"
#include "GoalsFile.h"
#include "InputPanel.h"
#include "MessageBox.h"
#include "NavigationBar.h"
#include "ShellTestSupport.h"
#include "VolumeFiles.h"

#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {
class ShellDialogsTest : public ShellTest {};
} // namespace

TEST_F(ShellDialogsTest, GoalsAreKeptInTheGoalsFileAsUtf16AndShownAgain) {
    start();
    whenShown(QStringLiteral("GoalsDialog"), [](QWidget* dialog) {
        dialog->findChild<QPlainTextEdit*>(QStringLiteral("c1320"))
            ->setPlainText(QStringLiteral("Run 10 km\nBench 80 kg"));
        dialog->findChild<QPushButton*>(QStringLiteral("c1"))->click();
    });
    trigger(32829);
    const QString goals = m_device.paths().hostPath(QStringLiteral("\\Windows\\goals.dat"));
    const QByteArray bytes = VolumeFiles::readFile(goals);
    ASSERT_TRUE(bytes.startsWith("\xFF\xFE"));
    EXPECT_EQ(bytes.mid(2, 6), QByteArray("R\0u\0n\0", 6));

    QString reopened;
    whenShown(QStringLiteral("GoalsDialog"), [&reopened](QWidget* dialog) {
        auto* text = dialog->findChild<QPlainTextEdit*>(QStringLiteral("c1320"));
        reopened = text->toPlainText();
        text->setPlainText(QStringLiteral("changed"));
        dialog->findChild<QPushButton*>(QStringLiteral("c2"))->click();
    });
    trigger(32829);
    EXPECT_EQ(reopened, QStringLiteral("Run 10 km\nBench 80 kg"));
    EXPECT_EQ(GoalsFile::read(), QStringLiteral("Run 10 km\nBench 80 kg"));

    // A goals file written elsewhere as plain UTF-8 reads too.
    VolumeFiles::writeFile(goals, "Lose 2 kg \xE2\x80\x93 by June");
    EXPECT_EQ(GoalsFile::read(), QStringLiteral("Lose 2 kg \u2013 by June"));
}

// About and Help show in their pictures; the photo's missing-file message names the device's own
// folder, which the tour's device cannot show the same way twice.
TEST_F(ShellDialogsTest, ViewPhotoSaysWhereThePictureBelongsAndRefusesOneThatIsNotAJpeg) {
    start();
    trigger(32834);
    ASSERT_EQ(m_boxes.captions(), QStringList({"View Photo"}));
    EXPECT_TRUE(m_boxes.texts()[0].contains(QStringLiteral("picture.jpg")));
    EXPECT_TRUE(m_boxes.texts()[0].contains(QDir(m_device.paths().programFolder()).absolutePath()));

    // A picture that is not a JPEG is reported, not shown.
    const QString picture = m_device.paths().hostPath(QStringLiteral("\\Program Files\\Kovalin\\picture.jpg"));
    VolumeFiles::writeFile(picture, "not a picture");
    trigger(32834);
    ASSERT_EQ(m_boxes.texts().size(), 2);
    EXPECT_TRUE(m_boxes.texts()[1].startsWith(QStringLiteral("\\Program Files\\Kovalin\\picture.jpg cannot be shown")));

    // A real one is shown (where, the photo picture shows) until it is tapped.
    QImage photo(240, 290, QImage::Format_RGB32);
    photo.fill(Qt::darkGreen);
    ASSERT_TRUE(photo.save(picture, "JPEG"));
    whenShown(QStringLiteral("PhotoViewer"),
              [](QWidget* viewer) { QTest::mouseClick(viewer, Qt::LeftButton, {}, QPoint(120, 120)); });
    trigger(32834);
    EXPECT_EQ(m_boxes.texts().size(), 2);
}

// Where the box stands, its text and its buttons show in the range-message and delete-question pictures.
TEST_F(ShellDialogsTest, TheMessageBoxPresenterShowsTheBoxAndReturnsTheButtonPressed) {
    start();
    DeviceMessageBoxPresenter presenter;
    whenShown(QStringLiteral("DeviceMessageBox"),
              [](QWidget* box) { box->findChild<QPushButton*>(QStringLiteral("c7"))->click(); });
    EXPECT_EQ(MessageBoxW(&main(), QStringLiteral("Delete the meal?"), QStringLiteral("Kovalin"), MB_YESNO), IDNO);

    whenShown(QStringLiteral("DeviceMessageBox"), [](QWidget* box) {
        QTest::keyClick(box->findChild<QPushButton*>(QStringLiteral("c1")), Qt::Key_Escape);
    });
    EXPECT_EQ(MessageBoxW(nullptr, QStringLiteral("Continue?"), QStringLiteral("Kovalin"), MB_OKCANCEL), IDCANCEL);
}

TEST_F(ShellDialogsTest, TheInputPanelTypesIntoTheFocusedControlWithoutTakingTheFocus) {
    start();
    auto* edit = new QLineEdit(main().page(0));
    edit->show();
    edit->setFocus();
    ASSERT_TRUE(waitUntil([edit] { return edit->hasFocus(); }));
    QTest::mouseClick(m_screen->findChild<QToolButton*>(QStringLiteral("InputPanelButton")), Qt::LeftButton);
    InputPanel& panel = m_screen->inputPanel();
    ASSERT_TRUE(panel.isVisible());
    EXPECT_EQ(QRect(panel.mapTo(m_screen.get(), QPoint(0, 0)), panel.size()), QRect(0, 214, 240, 80));

    auto tap = [&panel](const QString& label) {
        for (int y = 0; y < InputPanel::kHeight; y += 2) {
            for (int x = 0; x < InputPanel::kWidth; x += 2) {
                if (panel.keyAt(QPoint(x, y)) == label) {
                    QTest::mouseClick(&panel, Qt::LeftButton, {}, QPoint(x, y));
                    return;
                }
            }
        }
        ADD_FAILURE() << "no key " << label.toStdString();
    };
    tap(QStringLiteral("k"));
    tap(QStringLiteral("\u21E7"));
    tap(QStringLiteral("g"));
    tap(QStringLiteral("9"));
    tap(QStringLiteral(" "));
    tap(QStringLiteral("x"));
    tap(QStringLiteral("\u2190"));
    EXPECT_EQ(edit->text(), QStringLiteral("kG9 "));
    EXPECT_TRUE(edit->hasFocus());
    QTest::mouseClick(m_screen->findChild<QToolButton*>(QStringLiteral("InputPanelButton")), Qt::LeftButton);
    EXPECT_FALSE(panel.isVisible());
}
