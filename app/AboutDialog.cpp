#include "AboutDialog.h"

#include "Bitmaps.h"
#include "DeviceFonts.h"
#include "resource.h"

#include <QLabel>
#include <QVBoxLayout>

AboutDialog::AboutDialog(QWidget* parent)
    : DeviceDialog(QStringLiteral("AboutDialog"), QStringLiteral("About"), parent) {
    auto* icon = new QLabel(content());
    icon->setObjectName(QStringLiteral("c%1").arg(IDC_ABOUT_ICON));
    icon->setPixmap(Bitmaps::icon(IDR_MAINFRAME).pixmap(32, 32));
    icon->setAlignment(Qt::AlignCenter);

    auto* name = new QLabel(QStringLiteral("Kovalin"), content());
    name->setObjectName(QStringLiteral("c%1").arg(IDC_ABOUT_NAME));
    name->setFont(DeviceFonts::tahoma(20, true));
    name->setAlignment(Qt::AlignCenter);

    auto* version = new QLabel(versionText(), content());
    version->setObjectName(QStringLiteral("c%1").arg(IDC_ABOUT_VERSION));
    version->setAlignment(Qt::AlignCenter);

    auto* purpose =
        new QLabel(QStringLiteral("A personal fitness log: strength, aerobic, food and body, day by day."), content());
    purpose->setWordWrap(true);
    purpose->setAlignment(Qt::AlignCenter);

    auto* layout = new QVBoxLayout(content());
    layout->addStretch(1);
    layout->addWidget(icon);
    layout->addWidget(name);
    layout->addWidget(version);
    layout->addSpacing(12);
    layout->addWidget(purpose);
    layout->addStretch(2);
    addOkButton();
}

QString AboutDialog::version() {
    return QStringLiteral(KOVALIN_VERSION);
}

QString AboutDialog::versionText() {
    return QStringLiteral("Version ") + version();
}
