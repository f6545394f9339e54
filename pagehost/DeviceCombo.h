#pragma once
// The drop-down of the pages: a list to pick from, or (editable) a text box with a list, as the
// platform's combo boxes. An editable one takes what is typed as typed (no completion, nothing
// added to the list) and shows the start of its text when not focused. The wheel never changes a
// value in passing: it goes on to what holds the control (a grid scrolls its rows). Its list opens
// inside the device's screen, scrolling when it is longer than the room there.

#include <QComboBox>

class DeviceCombo : public QComboBox {
    Q_OBJECT
public:
    DeviceCombo(bool editable, QWidget* parent);

    // Makes edit the text box of an editable combo, which takes text as typed like the one it replaces.
    void useLineEdit(QLineEdit* edit);
    // Shows text in an editable combo, from its start.
    void setText(const QString& text);
    // Fills the list sorted as the platform's sorted lists are, keeping the text shown.
    void setSortedItems(const QStringList& items);
    // The platform's sort: ignoring case, and by case among names equal but for case.
    static QStringList sortedItems(QStringList items);

    void showPopup() override;

protected:
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
