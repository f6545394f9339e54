#pragma once
// The about box: the program's icon, name and version.

#include "DeviceDialog.h"

class AboutDialog : public DeviceDialog {
    Q_OBJECT
public:
    explicit AboutDialog(QWidget* parent);

    static QString versionText();
};
