#include "ExerciseNameEdit.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

namespace {
constexpr int kInset = 1;

// Keys that choose from the list or leave the box rather than edit its text.
bool editsText(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
        return false;
    default:
        return !(event.modifiers() & Qt::AltModifier);
    }
}
} // namespace

ExerciseNameEdit::ExerciseNameEdit(QWidget* parent) : QLineEdit(parent) {}

QStringList ExerciseNameEdit::shownLines(const QString& text, const QFont& font, const QFont& small, int width) {
    if (QFontMetrics(font).horizontalAdvance(text) <= width) {
        return {text};
    }
    // Broken at whole words where it can be; a word longer than the line breaks anywhere.
    QTextLayout layout(text, small);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine first = layout.createLine();
    first.setLineWidth(width);
    layout.endLayout();
    const QString rest = text.mid(first.textLength()).trimmed();
    if (rest.isEmpty()) {
        return {text};
    }
    return {text.left(first.textLength()).trimmed(), QFontMetrics(small).elidedText(rest, Qt::ElideRight, width)};
}

QFont ExerciseNameEdit::twoLineFont(const QFont& font, int height) {
    QFont small = font;
    for (int size = QFontInfo(font).pixelSize(); size > 1; --size) {
        small.setPixelSize(size);
        // Two lines may share their leading: the ascent and descent of each must fit.
        if (2 * (QFontMetrics(small).ascent() + QFontMetrics(small).descent()) <= height + 1) {
            break;
        }
    }
    return small;
}

void ExerciseNameEdit::paintEvent(QPaintEvent* event) {
    if (m_typing) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Base));
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    const QRect area = rect().adjusted(kInset, 0, -kInset, 0);
    const QFont small = twoLineFont(font(), height());
    const QStringList lines = shownLines(text(), font(), small, area.width());
    const bool whole = QFontMetrics(font()).horizontalAdvance(text()) <= area.width();
    painter.setFont(whole ? font() : small);
    const QFontMetrics metrics(painter.font());
    const int pitch = metrics.ascent() + metrics.descent();
    const int top = (height() - static_cast<int>(lines.size()) * pitch) / 2;
    for (int i = 0; i < lines.size(); ++i) {
        painter.drawText(QPoint(area.left(), top + i * pitch + metrics.ascent()), lines[i]);
    }
}

void ExerciseNameEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        setTyping(false);
    } else if (editsText(*event)) {
        setTyping(true);
    }
    QLineEdit::keyPressEvent(event);
}

void ExerciseNameEdit::mousePressEvent(QMouseEvent* event) {
    // A tap into the text puts the cursor there: the person is about to edit.
    setTyping(true);
    QLineEdit::mousePressEvent(event);
}

void ExerciseNameEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    setTyping(false);
}

void ExerciseNameEdit::setTyping(bool typing) {
    if (typing != m_typing) {
        m_typing = typing;
        if (!typing) {
            setCursorPosition(0);
        }
        update();
    }
}
