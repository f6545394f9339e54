#include "ScreenshotTour.h"

#include "CeDatabase.h"
#include "Clock.h"
#include "CommandBar.h"
#include "ConfirmDialog.h"
#include "DeviceMessageBoxPresenter.h"
#include "DevicePaths.h"
#include "KovalinApp.h"
#include "MainDialog.h"
#include "StartupDialog.h"
#include "resource.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

namespace {
const QStringList kTabNames = {QStringLiteral("today"),   QStringLiteral("upper-body"), QStringLiteral("lower-body"),
                               QStringLiteral("aerobic"), QStringLiteral("food"),       QStringLiteral("reports"),
                               QStringLiteral("calendar")};
} // namespace

ScreenshotTour::ScreenshotTour(const QString& directory) : m_directory(directory) {}

int ScreenshotTour::run() {
    QTemporaryDir deviceDir;
    DevicePaths paths(deviceDir.path() + QStringLiteral("/device"));
    if (!deviceDir.isValid() || !QDir().mkpath(m_directory) || !paths.ensureCreated()) {
        std::fprintf(stderr, "kovalin: cannot create %s or a temporary device\n", qPrintable(m_directory));
        return 1;
    }
    DevicePaths::setCurrent(paths);
    if (!CeMountObjectStore(paths.objectStore())) {
        std::fprintf(stderr, "kovalin: cannot open the temporary device's object store\n");
        return 1;
    }
    Clock::setFixed(QDateTime(QDate(2024, 3, 14), QTime(9, 41)));
    int code = 0;
    {
        DeviceMessageBoxPresenter presenter;
        KovalinApp app;
        m_app = &app;
        DeviceScreen& screen = app.screen();
        screen.show();
        screen.start();
        connect(screen.findChild<StartupDialog*>(), &StartupDialog::textShown, this, &ScreenshotTour::onStartupText);
        connect(&screen.mainDialog(), &MainDialog::loaded, this,
                [this] { QTimer::singleShot(0, this, &ScreenshotTour::tourPages); });
        QApplication::exec();
        m_app = nullptr;
    }
    CeUnmountObjectStore();
    for (const QString& name : m_written) {
        std::printf("%s\n", qPrintable(QDir(m_directory).filePath(name)));
    }
    for (const QString& failure : m_failed) {
        std::fprintf(stderr, "kovalin: %s\n", qPrintable(failure));
        code = 1;
    }
    return code;
}

void ScreenshotTour::onStartupText(const QString& text) {
    if (text == QStringLiteral("   Loading calendar...")) {
        save(grabScreen(), QStringLiteral("startup.png"));
        // The release notes come up next, while the Today page is made.
        QTimer::singleShot(0, this, &ScreenshotTour::answerReleaseNotes);
    }
}

void ScreenshotTour::answerReleaseNotes() {
    auto* dialog = m_app->screen().findChild<ConfirmDialog*>(QStringLiteral("ConfirmDialog"));
    if (dialog == nullptr || !dialog->isVisible()) {
        QTimer::singleShot(10, this, &ScreenshotTour::answerReleaseNotes);
        return;
    }
    save(grabScreen(), QStringLiteral("release-notes.png"));
    dialog->findChild<QCheckBox*>(QStringLiteral("c%1").arg(IDC_CONFIRM_DONTSHOW))->setChecked(true);
    dialog->findChild<QPushButton*>(QStringLiteral("c1"))->click();
}

void ScreenshotTour::tourPages() {
    DeviceScreen& screen = m_app->screen();
    MainDialog& main = screen.mainDialog();
    for (int tab = 0; tab < MainDialog::kTabCount; ++tab) {
        main.tabControl()->setCurrentIndex(tab);
        save(grabScreen(), kTabNames[tab] + QStringLiteral(".png"));
    }
    main.tabControl()->setCurrentIndex(0);

    main.commandBar()->openMenu();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("menu.png"));
    main.commandBar()->menu()->hide();

    QTimer::singleShot(0, this, [this] {
        auto* options = m_app->screen().findChild<QDialog*>(QStringLiteral("OptionsDialog"));
        save(grabScreen(), QStringLiteral("options.png"));
        if (options != nullptr) {
            options->reject();
        }
    });
    screen.findChild<QAction*>(QStringLiteral("cmd%1").arg(ID_MENU_OPTIONS))->trigger();
    QApplication::quit();
}

QImage ScreenshotTour::grabScreen() const {
    DeviceScreen& screen = m_app->screen();
    QImage image = screen.grab().toImage();
    // Pop-up menus are windows of their own: drawn onto the picture where they stand.
    QPainter painter(&image);
    for (QWidget* popup : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMenu*>(popup) != nullptr && popup->isVisible()) {
            painter.drawPixmap(screen.mapFromGlobal(popup->pos()), popup->grab());
        }
    }
    return image;
}

void ScreenshotTour::save(const QImage& image, const QString& name) {
    const QString path = QDir(m_directory).filePath(name);
    if (image.save(path, "PNG")) {
        m_written.append(name);
    } else {
        m_failed.append(QStringLiteral("cannot write ") + path);
    }
}
