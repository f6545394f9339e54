#pragma once
// Tap-and-hold: a stylus pressed on a control and held still for about a second opens the control's
// context menu, as on the device. Watches every widget of the application; the right button keeps
// opening context menus as on any desktop.

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class TapAndHold : public QObject {
    Q_OBJECT
public:
    static constexpr int kHoldMs = 1000;
    // The stylus may wander this far (device pixels) and still be holding.
    static constexpr int kSlack = 4;

    // Installs itself on the application for its lifetime.
    explicit TapAndHold(int holdMs = kHoldMs, QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void held();

    QTimer m_timer;
    QPointer<QWidget> m_target;
    QPoint m_pos;       // in the target's coordinates
    QPoint m_globalPos; // on the desktop
};
