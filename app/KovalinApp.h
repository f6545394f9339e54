#pragma once
// The application object: the program's name, the dialog colours of the whole application, and the
// device screen with the main dialog, run until the main dialog ends.

#include "DeviceScreen.h"
#include "ShellPageFactory.h"
#include "TapAndHold.h"

#include <QString>

class KovalinApp {
public:
    static QString name() { return QStringLiteral("Kovalin"); }
    // White control background, black text, for every window of the application.
    static void setDialogColours();

    KovalinApp();

    DeviceScreen& screen() { return m_screen; }
    // Shows the screen, starts the main dialog and runs until it ends; the process's exit code.
    int run();
    // Ends the program as Exit does (the shown page saved), leaving every event loop, a modal
    // dialog's too: run() then returns 0.
    void end();

private:
    TapAndHold m_tapAndHold;
    ShellPageFactory m_factory;
    DeviceScreen m_screen;
};
