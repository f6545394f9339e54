// Kovalin: starts the program on a device folder, or writes the screenshots.

#include "AboutDialog.h"
#include "CeDatabase.h"
#include "CommandLine.h"
#include "DeviceFonts.h"
#include "DeviceLock.h"
#include "DeviceMessageBoxPresenter.h"
#include "DevicePaths.h"
#include "ErrorMessage.h"
#include "KovalinApp.h"
#include "QuitOnFirstPaint.h"
#include "ScreenshotTour.h"
#include "SingleInstance.h"
#include "TerminationSignals.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>
#include <memory>

#include <sys/stat.h>

namespace {
// A failure before the device screen is up: told on standard error and in a desktop message box.
int fail(const QString& text) {
    std::fprintf(stderr, "kovalin: %s\n", qPrintable(text));
    QMessageBox::critical(nullptr, KovalinApp::name(), text);
    return 1;
}

int runOnDevice(const CommandLine& line) {
    // From here on a signal to end is taken once the event loop runs: a start it interrupts goes on
    // to the screen and ends there as Exit does, with the store unmounted and the lock released.
    TerminationSignals termination;
    // Before the screen is up, a signal ends whatever loop runs (a message box telling a failure).
    QObject::connect(&termination, &TerminationSignals::received, &termination, [] { QCoreApplication::exit(0); });
    const DevicePaths paths(DevicePaths::resolve(line.device));
    if (const DWORD error = paths.claim(); error != ERROR_SUCCESS) {
        return fail(ErrorMessage::forPath(paths.root(), error));
    }
    SingleInstance instance(paths.root());
    if (!instance.acquire()) {
        if (instance.error() != ERROR_SHARING_VIOLATION) {
            return fail(ErrorMessage::forPath(paths.root(), instance.error()));
        }
        // A command of the command line holding the device says who it is in the lock.
        if (const QString holder = DeviceLock::holder(paths.lockFile()); !holder.isEmpty()) {
            return fail(QStringLiteral("A command (%1) is working on this device; start Kovalin when it has finished.")
                            .arg(holder));
        }
        const QString text = QStringLiteral("Kovalin is already running on this device.");
        std::fprintf(stderr, "kovalin: %s (%s)\n", qPrintable(text), qPrintable(paths.root()));
        if (!instance.activateRunning()) {
            QMessageBox::information(nullptr, KovalinApp::name(), text);
        }
        return 1;
    }
    DevicePaths::setCurrent(paths);
    if (!CeMountObjectStore(paths.objectStore())) {
        return fail(ErrorMessage::forPath(paths.objectStore(), GetLastError()));
    }
    // The folders come after the store, so that a start refused before leaves an empty folder empty.
    QString folder;
    if (const DWORD error = paths.createFolders(&folder); error != ERROR_SUCCESS) {
        CeUnmountObjectStore();
        return fail(ErrorMessage::forPath(folder, error));
    }
    int code = 0;
    {
        DeviceMessageBoxPresenter presenter;
        KovalinApp app;
        DeviceScreen& screen = app.screen();
        QObject::connect(&termination, &TerminationSignals::received, &screen, [&app] { app.end(); });
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
    // Every file and folder the program makes is its user's alone, whatever umask it was started with.
    ::umask(077);
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
        qputenv("QT_SCALE_FACTOR", QByteArray::number(line.scaleGiven ? line.scale : 1));
    } else if (line.scaleGiven || !qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(line.scale));
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(KovalinApp::name());
    // Ties the windows to the installed desktop entry, so that the desktop shows its name and icon.
    QGuiApplication::setDesktopFileName(QStringLiteral(KOVALIN_APP_ID));
    DeviceFonts::install();
    KovalinApp::setDialogColours();
    if (!line.screenshotsDir.isEmpty()) {
        return ScreenshotTour(line.screenshotsDir, line.scaleGiven ? line.scale : 1).run();
    }
    return runOnDevice(line);
}
