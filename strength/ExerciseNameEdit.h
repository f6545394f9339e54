#pragma once
// The text box of the set-entry grid's exercise drop-down. Its column is too narrow for most names on
// one line, and a line edit shows the end of a long name while it has the focus and the start once it
// has lost it, so "Barbell Bench Press" and "Dumbbell Bench Press" would both read "Bench Press". Until
// the person types into it, the box shows its name from the start, whole on one line when it fits,
// else on two lines in a smaller font (the second cut with "..." when even that is too short): the same
// in every row, after a pick from the list and after the grid is opened again. Typing shows the usual
// line with its cursor; leaving the box or Enter goes back to the whole name.

#include <QLineEdit>

class ExerciseNameEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit ExerciseNameEdit(QWidget* parent);

    // True while the person types: the box is then an ordinary line edit.
    bool isTyping() const { return m_typing; }
    // The lines the box shows text on within width: text itself when it fits in font or on one line in
    // small, else two lines in small.
    static QStringList shownLines(const QString& text, const QFont& font, const QFont& small, int width);
    // The font of two lines in a box of height: as large as fits, at most font's size.
    static QFont twoLineFont(const QFont& font, int height);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void setTyping(bool typing);

    bool m_typing = false;
};
