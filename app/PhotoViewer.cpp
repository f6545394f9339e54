#include "PhotoViewer.h"

#include "DevicePaths.h"
#include "MessageBox.h"
#include "resource.h"

#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QMouseEvent>

QString PhotoViewer::devicePath() {
    return QStringLiteral("\\Program Files\\Kovalin\\picture.jpg");
}

QString PhotoViewer::hostPath() {
    return DevicePaths::current().hostPath(devicePath());
}

void PhotoViewer::show(QWidget* parent) {
    const QString path = hostPath();
    if (!QFileInfo::exists(path)) {
        MessageBoxW(parent,
                    QStringLiteral("To see your photo here, copy a 240 x 290 JPEG picture named picture.jpg into "
                                   "\\Program Files\\Kovalin\\ on the device (the folder %1).")
                        .arg(QFileInfo(path).absolutePath()),
                    QStringLiteral("View Photo"), MB_OK | MB_ICONINFORMATION);
        return;
    }
    QImageReader reader(path, "jpeg");
    const QImage image = reader.read();
    if (image.isNull()) {
        MessageBoxW(parent, devicePath() + QStringLiteral(" cannot be shown: ") + reader.errorString(),
                    QStringLiteral("View Photo"), MB_OK | MB_ICONERROR);
        return;
    }
    PhotoViewer viewer(QPixmap::fromImage(image), parent);
    DeviceScreen::runModal(viewer, DeviceScreen::Placement::BelowNavigationBar);
}

PhotoViewer::PhotoViewer(const QPixmap& photo, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("PhotoViewer"));
    // The photo fills the screen below the navigation bar: its title is the one place left to say how
    // to close it.
    setWindowTitle(QStringLiteral("Photo - tap to close"));
    setAutoFillBackground(true);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    auto* picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("c%1").arg(IDC_PHOTO));
    // A picture of another size is scaled to fit, keeping its proportions.
    picture->setPixmap(photo.size() == QSize(kPhotoWidth, kPhotoHeight)
                           ? photo
                           : photo.scaled(kPhotoWidth, kPhotoHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    picture->setAlignment(Qt::AlignCenter);
    picture->setGeometry(0, 0, kPhotoWidth, kPhotoHeight);
}

void PhotoViewer::mousePressEvent(QMouseEvent* event) {
    event->accept();
    accept();
}
