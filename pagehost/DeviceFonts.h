#pragma once
// The device's fonts. "Tahoma" is Wine's metric-compatible Tahoma, loaded from the fonts-wine
// package at start; DejaVu Sans stands in when it is missing.

#include <QFont>
#include <QString>

class DeviceFonts {
public:
    // Loads Tahoma (regular and bold) and makes the dialog font the application's font.
    // False when Tahoma could not be loaded and the fallback is used.
    static bool install();
    // The family the program draws with: "Tahoma" once installed, else the fallback.
    static QString family();
    // The font a control gets from the description "Tahoma" with height (a cell height in pixels,
    // as a positive font height means on the device; every other attribute zero).
    static QFont tahoma(int height, bool bold = false);
    // The dialogs' font: Tahoma 8 points, 11 pixels to the em.
    static QFont dialogFont();
};
