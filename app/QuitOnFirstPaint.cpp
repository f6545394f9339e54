#include "QuitOnFirstPaint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

QuitOnFirstPaint::QuitOnFirstPaint(const QString& objectName, QObject* parent)
    : QObject(parent), m_objectName(objectName) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool QuitOnFirstPaint::eventFilter(QObject* watched, QEvent* event) {
    if (!m_seen && event->type() == QEvent::Paint && watched->objectName() == m_objectName) {
        m_seen = true;
        // Quit once this paint has finished and reached the screen.
        QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
    }
    return QObject::eventFilter(watched, event);
}
