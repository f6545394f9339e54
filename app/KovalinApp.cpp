#include "KovalinApp.h"

#include "MainDialog.h"

#include <QApplication>
#include <QCoreApplication>
#include <QPalette>
#include <QStyleFactory>

void KovalinApp::setDialogColours() {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette = QApplication::palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Window, Qt::white);
        palette.setColor(group, QPalette::Base, Qt::white);
        palette.setColor(group, QPalette::Button, Qt::white);
        palette.setColor(group, QPalette::WindowText, Qt::black);
        palette.setColor(group, QPalette::Text, Qt::black);
        palette.setColor(group, QPalette::ButtonText, Qt::black);
        palette.setColor(group, QPalette::Highlight, QColor(0x0A, 0x2A, 0x84));
        palette.setColor(group, QPalette::HighlightedText, Qt::white);
    }
    palette.setColor(QPalette::Disabled, QPalette::Window, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Base, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Button, Qt::white);
    QApplication::setPalette(palette);
}

KovalinApp::KovalinApp() : m_screen(m_factory) {}

int KovalinApp::run() {
    m_screen.show();
    m_screen.start();
    return QApplication::exec();
}

void KovalinApp::end() {
    // Closing the screen is what Exit and the window's close button do.
    m_screen.close();
    QCoreApplication::exit(0);
}
