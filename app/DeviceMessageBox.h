#pragma once
// A message box drawn as the device draws one: a box with a caption strip, an icon, the text and
// the buttons of its MB_ type, centred on the client area of the screen. (QMessageBox sizes itself
// against the desktop, at least 300 pixels wide, too wide for a 240-pixel screen.)

#include "WinTypes.h"

#include <QDialog>

class DeviceMessageBox : public QDialog {
    Q_OBJECT
public:
    // Buttons (with their ids as objectNames "c1", "c2", "c6", "c7") as type says.
    DeviceMessageBox(const QString& text, const QString& caption, UINT type, QWidget* parent);

    // Shows the box modally on the screen of parent (or of the current screen) and returns the id of
    // the button pressed: IDOK, IDCANCEL, IDYES or IDNO. Escape answers as Cancel (or No).
    int run();
    // The answer Escape and closing give for type.
    static int escapeAnswer(UINT type);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addButton(int id, const QString& text, bool isDefault);

    UINT m_type;
    int m_answer;
    class QHBoxLayout* m_buttons = nullptr;
};
