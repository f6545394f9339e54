#include "TapAndHold.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>

TapAndHold::TapAndHold(int holdMs, QObject* parent) : QObject(parent) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(holdMs);
    connect(&m_timer, &QTimer::timeout, this, &TapAndHold::held);
    QApplication::instance()->installEventFilter(this);
}

bool TapAndHold::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* press = static_cast<QMouseEvent*>(event);
        auto* widget = qobject_cast<QWidget*>(watched);
        // The press reaches the widget under the stylus first; its parents see it only if it is
        // refused, so the first widget to see it is the one that is held.
        if (press->button() == Qt::LeftButton && widget != nullptr && !m_timer.isActive()) {
            m_target = widget;
            m_pos = press->position().toPoint();
            m_globalPos = press->globalPosition().toPoint();
            m_timer.start();
        }
        break;
    }
    case QEvent::MouseMove:
        if (m_timer.isActive() &&
            (static_cast<QMouseEvent*>(event)->globalPosition().toPoint() - m_globalPos).manhattanLength() > kSlack) {
            m_timer.stop();
        }
        break;
    case QEvent::MouseButtonRelease:
        m_timer.stop();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void TapAndHold::held() {
    if (!m_target || !m_target->isVisible()) {
        return;
    }
    QContextMenuEvent menu(QContextMenuEvent::Mouse, m_pos, m_globalPos);
    QApplication::sendEvent(m_target, &menu);
}
