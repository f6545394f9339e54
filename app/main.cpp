// Kovalin: starts the program on a device folder, or writes the screenshots.

#include "AboutDialog.h"
#include "CeDatabase.h"
#include "CommandLine.h"
#include "DeviceFonts.h"
#include "DeviceMessageBoxPresenter.h"
#include "DevicePaths.h"
#include "KovalinApp.h"
#include "QuitOnFirstPaint.h"
#include "ScreenshotTour.h"
#include "SingleInstance.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>
#include <memory>

namespace {
// A failure before the device screen is up: told on standard error and in a desktop message box.
int fail(const QString& text) {
    std::fprintf(stderr, "kovalin: %s\n", qPrintable(text));
    QMessageBox::critical(nullptr, KovalinApp::name(), text);
    return 1;
}

int runOnDevice(const CommandLine& line) {
    const DevicePaths paths(DevicePaths::resolve(line.device));
    if (!paths.ensureCreated()) {
        return fail(QStringLiteral("The device folder %1 cannot be created.").arg(paths.root()));
    }
    SingleInstance instance(paths.root());
    if (!instance.acquire()) {
        const QString text = QStringLiteral("Kovalin is already running on this device.");
        std::fprintf(stderr, "kovalin: %s (%s)\n", qPrintable(text), qPrintable(paths.root()));
        if (!instance.activateRunning()) {
            QMessageBox::information(nullptr, KovalinApp::name(), text);
        }
        return 1;
    }
    DevicePaths::setCurrent(paths);
    if (!CeMountObjectStore(paths.objectStore())) {
        return fail(QStringLiteral("The device's object store %1 cannot be opened (error %2).")
                        .arg(paths.objectStore())
                        .arg(GetLastError()));
    }
    int code = 0;
    {
        DeviceMessageBoxPresenter presenter;
        KovalinApp app;
        DeviceScreen& screen = app.screen();
        QObject::connect(&instance, &SingleInstance::activationRequested, &screen, [&screen] {
            screen.showNormal();
            screen.raise();
            screen.activateWindow();
        });
        std::unique_ptr<QuitOnFirstPaint> quit;
        if (line.quitAfterStart) {
            quit = std::make_unique<QuitOnFirstPaint>(QStringLiteral("TodayPage"));
        }
        code = app.run();
    }
    CeUnmountObjectStore();
    return code;
}
} // namespace

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    const CommandLine line = CommandLine::parse(arguments);
    if (!line.error.isEmpty()) {
        std::fprintf(stderr, "kovalin: %s\n\n%s", qPrintable(line.error), qPrintable(line.helpText));
        return 2;
    }
    if (line.help) {
        std::printf("%s", qPrintable(line.helpText));
        return 0;
    }
    if (line.version) {
        std::printf("Kovalin %s\n", qPrintable(AboutDialog::version()));
        return 0;
    }
    // Everything is laid out in device pixels; the scale makes them desktop pixels.
    if (!line.screenshotsDir.isEmpty()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_SCALE_FACTOR", "1");
    } else if (line.scaleGiven || !qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(line.scale));
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(KovalinApp::name());
    DeviceFonts::install();
    KovalinApp::setDialogColours();
    if (!line.screenshotsDir.isEmpty()) {
        return ScreenshotTour(line.screenshotsDir).run();
    }
    return runOnDevice(line);
}
