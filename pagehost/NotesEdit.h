#pragma once
// The notes box of the day pages, in Tahoma 11: a new day's notes hold the placeholder
// "<Click to add Notes>", which is cleared when the box gains the focus so that it is never kept
// as a note. Leaving the box is when its notes are saved. The box holds at most a note's limit
// (RecordLimits): a longer stored note is shown by its start, and typing stops at the limit, so that
// no note can stall the page or be saved over the limit.

#include <QPlainTextEdit>

class NotesEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit NotesEdit(QWidget* parent);

    QString notes() const { return toPlainText(); }
    // Shows notes, cut to the limit, unless they are already shown (keeping the cursor where it is).
    void setNotes(const QString& notes);

signals:
    // The box lost the focus: time to save.
    void left();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void keepToLimit();
};
