#pragma once
// The notices shown once at start-up, unless the user asked for them no more (DontShow = 1): that
// data of version 1 is on the device, then the release notes, whose "Don't show this message
// again." box sets DontShow.

#include <QString>

class PageHost;
class QObject;

class StartupNotices {
public:
    // The upper-body database of version 1 data; its presence means there is such data to import.
    static QString versionOneDatabase() { return QStringLiteral("KovUpperBody"); }
    static QString versionOneText();

    static void show(PageHost& host, QObject* owner);
};
