#include "FieldEdit.h"

#include <QKeyEvent>

#include <algorithm>

namespace {
bool isSeparatorKey(const QString& text) {
    return text.size() == 1 && QStringLiteral("/:.-, ").contains(text.at(0));
}
} // namespace

FieldEdit::FieldEdit(QWidget* parent) : QLineEdit(parent) {
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
    setFocusPolicy(Qt::StrongFocus);
}

void FieldEdit::setFields(std::vector<Field> fields, QStringList separators) {
    m_fields = std::move(fields);
    m_separators = std::move(separators);
    m_shown.assign(m_fields.size(), 0);
    for (size_t i = 0; i < m_fields.size(); ++i) {
        m_shown[i] = m_fields[i].minimum;
    }
    showValues(m_shown);
}

void FieldEdit::showValues(std::vector<int> values) {
    m_shown = std::move(values);
    m_draft = m_shown;
    m_typedWidth.assign(m_fields.size(), 0);
    m_typed.clear();
    m_advanced = false;
    render();
}

int FieldEdit::maximumOf(int field, const std::vector<int>&) const {
    return m_fields[static_cast<size_t>(field)].maximum;
}

bool FieldEdit::commit() {
    if (m_committing) {
        return true;
    }
    m_typed.clear();
    m_advanced = false;
    if (m_draft == m_shown) {
        m_typedWidth.assign(m_fields.size(), 0);
        render();
        return true;
    }
    // Accepting may show a message, which takes the focus and would commit again.
    m_committing = true;
    std::vector<int> draft = m_draft;
    const bool accepted = accept(draft);
    m_committing = false;
    if (accepted) {
        m_shown = draft;
    }
    showValues(m_shown);
    return accepted;
}

void FieldEdit::revert() {
    showValues(m_shown);
}

// --- Typing ---------------------------------------------------------------------------------------

void FieldEdit::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        commit();
        return;
    case Qt::Key_Escape:
        if (hasDraft()) {
            revert();
            return;
        }
        event->ignore(); // nothing to undo: the dialog's Escape
        return;
    case Qt::Key_Left:
        moveTo(std::max(0, m_current - 1));
        return;
    case Qt::Key_Right:
        moveTo(std::min(static_cast<int>(m_fields.size()) - 1, m_current + 1));
        return;
    case Qt::Key_Home:
        moveTo(0);
        return;
    case Qt::Key_End:
        moveTo(static_cast<int>(m_fields.size()) - 1);
        return;
    case Qt::Key_Up:
        step(1);
        return;
    case Qt::Key_Down:
        step(-1);
        return;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        if (!m_typed.isEmpty()) {
            m_typed.chop(1);
            m_draft[static_cast<size_t>(m_current)] = m_typed.isEmpty() ? m_shown[static_cast<size_t>(m_current)]
                                                                         : m_typed.toInt();
            render();
        }
        return;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        QLineEdit::keyPressEvent(event);
        return;
    default:
        break;
    }
    if (text.size() == 1 && text.at(0).isDigit()) {
        typeDigit(text.at(0).digitValue());
    } else if (text.size() == 1 && text.at(0).isLetter()) {
        typeName(text.at(0));
    } else if (isSeparatorKey(text)) {
        typeSeparator();
    } else if (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll)) {
        QLineEdit::keyPressEvent(event);
    }
    // Anything else would edit the text around the fields: it is not taken.
}

void FieldEdit::typeDigit(int digit) {
    const Field& field = m_fields[static_cast<size_t>(m_current)];
    if (!field.names.isEmpty()) {
        return;
    }
    QString typed = m_typed + QString::number(digit);
    // A digit that would carry the field past its largest value starts the field again.
    if (typed.toInt() > field.maximum || typed.size() > field.width) {
        typed = QString::number(digit);
    }
    m_typed = typed;
    m_advanced = false;
    const int value = typed.toInt();
    m_draft[static_cast<size_t>(m_current)] = value;
    m_typedWidth[static_cast<size_t>(m_current)] = static_cast<int>(typed.size());
    const bool full = typed.size() >= field.width || value * 10 > field.maximum;
    const bool last = m_current + 1 >= static_cast<int>(m_fields.size());
    if (full && !last) {
        moveTo(m_current + 1);
        m_advanced = true;
        return;
    }
    render();
}

void FieldEdit::typeName(QChar letter) {
    // "p" sets PM from whichever field it is typed in: there is only one field of names.
    for (size_t f = 0; f < m_fields.size(); ++f) {
        const Field& field = m_fields[f];
        for (int i = 0; i < field.names.size(); ++i) {
            if (field.names[i].startsWith(letter, Qt::CaseInsensitive)) {
                m_draft[f] = field.minimum + i;
                m_typed.clear();
                render();
                return;
            }
        }
    }
}

void FieldEdit::typeSeparator() {
    // Right after a full field moved on by itself, the separator the person types is that move.
    if (m_advanced && m_typed.isEmpty()) {
        m_advanced = false;
        return;
    }
    if (m_current + 1 < static_cast<int>(m_fields.size())) {
        moveTo(m_current + 1);
    }
}

void FieldEdit::step(int delta) {
    const int maximum = maximumOf(m_current, m_draft);
    const int minimum = m_fields[static_cast<size_t>(m_current)].minimum;
    int& value = m_draft[static_cast<size_t>(m_current)];
    const int span = maximum - minimum + 1;
    value = minimum + ((std::clamp(value, minimum, maximum) - minimum + delta) % span + span) % span;
    m_typed.clear();
    m_advanced = false;
    render();
}

void FieldEdit::moveTo(int field) {
    m_current = field;
    m_typed.clear();
    m_advanced = false;
    render();
}

// --- Showing --------------------------------------------------------------------------------------

QString FieldEdit::fieldText(int index) const {
    const Field& field = m_fields[static_cast<size_t>(index)];
    const int value = m_draft[static_cast<size_t>(index)];
    if (!field.names.isEmpty()) {
        return field.names.value(value - field.minimum);
    }
    if (index == m_current && !m_typed.isEmpty()) {
        return m_typed;
    }
    return field.padded ? QStringLiteral("%1").arg(value, field.width, 10, QLatin1Char('0')) : QString::number(value);
}

void FieldEdit::render() {
    QString text;
    m_starts.clear();
    for (int i = 0; i < static_cast<int>(m_fields.size()); ++i) {
        m_starts.push_back(static_cast<int>(text.size()));
        text += fieldText(i);
        if (i < m_separators.size()) {
            text += m_separators[i];
        }
    }
    setText(text);
    if (hasFocus() && !m_fields.empty()) {
        setSelection(m_starts[static_cast<size_t>(m_current)], static_cast<int>(fieldText(m_current).size()));
    } else {
        // A narrow edit shows the start of its text.
        setCursorPosition(0);
    }
}

int FieldEdit::fieldAt(int position) const {
    int field = 0;
    for (int i = 0; i < static_cast<int>(m_starts.size()); ++i) {
        if (position >= m_starts[static_cast<size_t>(i)]) {
            field = i;
        }
    }
    return field;
}

// --- The stylus and the focus ---------------------------------------------------------------------

void FieldEdit::mousePressEvent(QMouseEvent* event) {
    if (!hasFocus()) {
        setFocus(Qt::MouseFocusReason);
    }
    if (event->button() == Qt::LeftButton) {
        const int field = fieldAt(cursorPositionAt(event->position().toPoint()));
        if (field != m_current) {
            moveTo(field);
        } else {
            render();
        }
    }
    event->accept();
}

void FieldEdit::mouseMoveEvent(QMouseEvent* event) {
    event->accept(); // no selecting across fields
}

void FieldEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void FieldEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    render();
}

void FieldEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    commit();
}

void FieldEdit::wheelEvent(QWheelEvent* event) {
    // A wheel passing over the edit never changes its value.
    event->ignore();
}
