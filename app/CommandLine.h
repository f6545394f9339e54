#pragma once
// The program's command line, read before the application object exists (the scale must be set
// before then).
//   --device DIR         the device folder
//   --scale N            the whole number of desktop pixels per device pixel (1 to 8)
//   --screenshots DIR    writes the screenshots of the device screen into DIR and exits (at scale 1
//                        unless --scale is given)
//   --quit-after-start   exits as soon as the Today page has been painted (start-up measurement)

#include <QString>
#include <QStringList>

class CommandLine {
public:
    // Three desktop pixels per device pixel: the 240 x 320 screen is 720 x 960, which fits a
    // 1920 x 1080 desktop with its task bar and title bar.
    static constexpr int kDefaultScale = 3;
    static constexpr int kMaxScale = 8;

    static CommandLine parse(const QStringList& arguments);

    QString device;
    int scale = kDefaultScale;
    bool scaleGiven = false;
    QString screenshotsDir;
    bool quitAfterStart = false;
    bool help = false;
    bool version = false;
    QString error; // not empty when the command line cannot be used
    QString helpText;
};
