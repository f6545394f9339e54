#include "InputPanel.h"

#include "DeviceFonts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

namespace {
constexpr int kKeyWidth = 17;
constexpr int kKeyHeight = 16;
constexpr int kLeft = 1;
} // namespace

InputPanel::InputPanel(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("InputPanel"));
    setFixedSize(kWidth, kHeight);
    setFocusPolicy(Qt::NoFocus);
    addRow(0, QStringLiteral("1234567890-="), 0);
    addKey(QStringLiteral("\u2190"), Qt::Key_Backspace,
           QRect(kLeft + 12 * kKeyWidth, 0, 2 * kKeyWidth - 2, kKeyHeight));
    addRow(1, QStringLiteral("qwertyuiop[]"), kKeyWidth / 2);
    addRow(2, QStringLiteral("asdfghjkl;'"), kKeyWidth);
    addKey(QStringLiteral("\u21B5"), Qt::Key_Return,
           QRect(kLeft + 12 * kKeyWidth, 2 * kKeyHeight, 2 * kKeyWidth - 2, kKeyHeight));
    addKey(QStringLiteral("\u21E7"), Qt::Key_Shift, QRect(kLeft, 3 * kKeyHeight, 2 * kKeyWidth - 2, kKeyHeight));
    addRow(3, QStringLiteral("zxcvbnm,./"), 2 * kKeyWidth);
    addKey(QStringLiteral(" "), Qt::Key_Space, QRect(kLeft + 3 * kKeyWidth, 4 * kKeyHeight, 7 * kKeyWidth, kKeyHeight));
    addKey(QStringLiteral("\u25C0"), Qt::Key_Left,
           QRect(kLeft + 11 * kKeyWidth, 4 * kKeyHeight, kKeyWidth, kKeyHeight));
    addKey(QStringLiteral("\u25B6"), Qt::Key_Right,
           QRect(kLeft + 12 * kKeyWidth, 4 * kKeyHeight, kKeyWidth, kKeyHeight));
}

void InputPanel::addRow(int row, const QString& characters, int indent) {
    for (int i = 0; i < characters.size(); ++i) {
        addKey(characters.mid(i, 1), 0, QRect(kLeft + indent + i * kKeyWidth, row * kKeyHeight, kKeyWidth, kKeyHeight));
    }
}

void InputPanel::addKey(const QString& label, int qtKey, const QRect& rect) {
    m_keys.push_back({label, qtKey, rect.adjusted(0, 0, -1, -1)});
}

QString InputPanel::keyAt(const QPoint& pos) const {
    for (const Key& key : m_keys) {
        if (key.rect.contains(pos)) {
            return key.label;
        }
    }
    return {};
}

void InputPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0xD8, 0xD8, 0xD8));
    painter.setFont(DeviceFonts::tahoma(12));
    for (const Key& key : m_keys) {
        const bool latched = key.qtKey == Qt::Key_Shift && m_shift;
        painter.fillRect(key.rect, latched ? QColor(0x0A, 0x2A, 0x84) : QColor(Qt::white));
        painter.setPen(QColor(0x80, 0x80, 0x80));
        painter.drawRect(key.rect.adjusted(0, 0, -1, -1));
        painter.setPen(latched ? Qt::white : Qt::black);
        const QString label = (m_shift && key.qtKey == 0) ? key.label.toUpper() : key.label;
        painter.drawText(key.rect, Qt::AlignCenter, label);
    }
}

void InputPanel::mousePressEvent(QMouseEvent* event) {
    for (const Key& key : m_keys) {
        if (key.rect.contains(event->position().toPoint())) {
            press(key);
            return;
        }
    }
}

void InputPanel::press(const Key& key) {
    if (key.qtKey == Qt::Key_Shift) {
        m_shift = !m_shift;
        update();
        return;
    }
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr) {
        return;
    }
    QString text = key.qtKey == 0 ? key.label : QString();
    if (key.qtKey == Qt::Key_Space) {
        text = QStringLiteral(" ");
    } else if (key.qtKey == Qt::Key_Return) {
        text = QStringLiteral("\r");
    }
    if (m_shift) {
        text = text.toUpper();
    }
    const int code = key.qtKey != 0 ? key.qtKey : QKeySequence(text.toUpper())[0].key();
    const Qt::KeyboardModifiers modifiers = m_shift ? Qt::ShiftModifier : Qt::NoModifier;
    QKeyEvent press(QEvent::KeyPress, code, modifiers, text);
    QKeyEvent release(QEvent::KeyRelease, code, modifiers, text);
    QApplication::sendEvent(target, &press);
    QApplication::sendEvent(target, &release);
    if (m_shift) {
        m_shift = false; // a shift holds for one key, as on the device
        update();
    }
}
