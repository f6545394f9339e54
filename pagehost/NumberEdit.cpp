#include "NumberEdit.h"

#include "MessageBox.h"

#include <QKeyEvent>

NumberEdit::NumberEdit(RangeCheck::Kind kind, double minimum, double maximum, QWidget* parent)
    : QLineEdit(parent), m_kind(kind), m_minimum(minimum), m_maximum(maximum) {
    setAlignment(Qt::AlignRight);
    setMaxLength(12);
    display(0);
}

void NumberEdit::setValue(double value) {
    m_value = value;
    display(value);
}

QString NumberEdit::textOf(double value) {
    return QString::number(value, 'g', 10);
}

void NumberEdit::display(double value) {
    setText(textOf(value));
    if (!hasFocus()) {
        setCursorPosition(0);
    }
}

bool NumberEdit::commit() {
    if (m_committing || text() == textOf(m_value)) {
        return true;
    }
    const bool emptyMeansZero = text().trimmed().isEmpty() && m_minimum <= 0 && 0 <= m_maximum;
    const RangeCheck::Result result =
        emptyMeansZero ? RangeCheck::Result{0.0, {}} : RangeCheck::check(m_kind, text(), m_minimum, m_maximum);
    if (!result.value) {
        // The message takes the focus, which would finish the edit again.
        m_committing = true;
        MessageBoxW(this, result.message, QStringLiteral("Kovalin"), MB_OK | MB_ICONEXCLAMATION);
        m_committing = false;
        display(m_value);
        // As the platform's range check does, the field takes the focus back with its value selected, so
        // that the person puts it right rather than moving on past a value that was not taken.
        setFocus(Qt::OtherFocusReason);
        selectAll();
        return false;
    }
    const bool changed = *result.value != m_value;
    setValue(*result.value);
    if (changed) {
        emit valueChanged(m_value);
    }
    return true;
}

void NumberEdit::stepTo(double value) {
    setText(textOf(value));
    commit();
}

void NumberEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        commit();
        selectAll();
        return;
    }
    if (event->key() == Qt::Key_Escape && text() != textOf(m_value)) {
        display(m_value);
        selectAll();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    commit();
    setCursorPosition(0);
}

void NumberEdit::wheelEvent(QWheelEvent* event) {
    event->ignore();
}
