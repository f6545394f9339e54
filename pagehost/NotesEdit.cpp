#include "NotesEdit.h"

#include "DeviceFonts.h"
#include "NotesPlaceholder.h"

NotesEdit::NotesEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setFont(DeviceFonts::tahoma(11));
    setTabChangesFocus(true);
}

void NotesEdit::setNotes(const QString& notes) {
    if (toPlainText() != notes) {
        setPlainText(notes);
    }
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
