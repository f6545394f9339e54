#pragma once
// An edit of fields, as the platform's date and time pickers are: "3/5/2024" is three fields, and
// "1:30 PM" three. A tap selects the field under the stylus; digits typed replace the selected
// field and move on to the next field once it can take no further digit; a separator moves on too,
// except right after such a move, so that "3/5/2024" and "352024" both give March 5. Up and Down
// step the field. What is typed is a draft: it takes effect once, on Enter or on leaving the edit,
// and Escape puts the shown value back. The kind of edit (DateControl, TimeControl) says what its
// fields are and whether a finished draft is accepted.

#include <QLineEdit>

#include <vector>

class FieldEdit : public QLineEdit {
    Q_OBJECT
public:
    struct Field {
        int minimum = 0;
        int maximum = 0;
        int width = 2;       // digits the field takes at most
        bool padded = false; // shown with leading zeros to its width
        QStringList names;   // a field of names (AM/PM) instead of digits
    };

    explicit FieldEdit(QWidget* parent);

    int currentField() const { return m_current; }
    // True while something typed has not yet taken effect.
    bool hasDraft() const { return m_draft != m_shown || !m_typed.isEmpty(); }
    // Makes the draft take effect now, as Enter does; false when it was refused.
    bool commit();
    // Drops the draft, as Escape does.
    void revert();

protected:
    // fields and the separators between them (one fewer).
    void setFields(std::vector<Field> fields, QStringList separators);
    // Shows values as the edit's value (no draft, nothing emitted).
    void showValues(std::vector<int> values);
    const std::vector<int>& shownValues() const { return m_shown; }
    // How many digits were typed into field in the current draft (0 when none).
    int typedWidth(int field) const { return m_typedWidth[static_cast<size_t>(field)]; }
    // The largest value field may take given the other fields of draft (a day in its month).
    virtual int maximumOf(int field, const std::vector<int>& draft) const;
    // Takes a finished draft that differs from the shown values: true when it becomes the value
    // (and the kind has said so), false when refused (the kind has told the person why).
    virtual bool accept(std::vector<int>& draft) = 0;

    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void typeDigit(int digit);
    void typeName(QChar letter);
    void typeSeparator();
    void step(int delta);
    void moveTo(int field);
    void render();
    QString fieldText(int field) const;
    int fieldAt(int position) const;

    std::vector<Field> m_fields;
    QStringList m_separators;
    std::vector<int> m_shown;
    std::vector<int> m_draft;
    std::vector<int> m_typedWidth;
    std::vector<int> m_starts; // where each field starts in the text
    int m_current = 0;
    QString m_typed;         // the digits typed into the current field so far
    bool m_advanced = false; // the last digit moved on to this field by itself
    bool m_committing = false;
};
