#pragma once
// The photo viewer: shows the 240 x 290 JPEG picture "picture.jpg" of the program's folder below the
// navigation bar, whose title says that a tap closes it (Escape does too). Without the picture a
// message says where to put one.

#include "DeviceScreen.h"

#include <QDialog>
#include <QPixmap>

class PhotoViewer : public QDialog {
    Q_OBJECT
public:
    static constexpr int kPhotoWidth = 240;
    static constexpr int kPhotoHeight = 290;

    // Shows the picture over the screen of parent, or the message when there is none to show.
    static void show(QWidget* parent);
    // The picture's device path and its place on the host.
    static QString devicePath();
    static QString hostPath();

    PhotoViewer(const QPixmap& photo, QWidget* parent);

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
