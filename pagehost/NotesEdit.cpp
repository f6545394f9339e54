#include "NotesEdit.h"

#include "DeviceFonts.h"
#include "NotesPlaceholder.h"
#include "RecordLimits.h"

#include <QTextCursor>

#include <algorithm>

NotesEdit::NotesEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setFont(DeviceFonts::tahoma(11));
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, &NotesEdit::keepToLimit);
}

void NotesEdit::setNotes(const QString& notes) {
    // Only the start of a longer note is ever given to the box: laying out millions of characters
    // would stall the page.
    const QString shown = notes.left(RecordLimits::kMaxNoteLength);
    if (toPlainText() != shown) {
        setPlainText(shown);
    }
}

void NotesEdit::keepToLimit() {
    const int excess = document()->characterCount() - 1 - RecordLimits::kMaxNoteLength;
    if (excess <= 0) {
        return;
    }
    // What went past the limit is taken back where it was typed or pasted.
    QTextCursor cursor = textCursor();
    const int end = cursor.position();
    cursor.setPosition(std::max(0, end - excess));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void NotesEdit::focusInEvent(QFocusEvent* event) {
    if (toPlainText() == kNotesPlaceholder) {
        clear();
    }
    QPlainTextEdit::focusInEvent(event);
}

void NotesEdit::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    emit left();
}
