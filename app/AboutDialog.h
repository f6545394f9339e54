#pragma once
// The about box: the program's icon, name and version.

#include "DeviceDialog.h"

class AboutDialog : public DeviceDialog {
    Q_OBJECT
public:
    explicit AboutDialog(QWidget* parent);

    // "2.0.0", and "Version 2.0.0" as the box shows it.
    static QString version();
    static QString versionText();
};
