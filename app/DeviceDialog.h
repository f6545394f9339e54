#pragma once
// A modal dialog of the device: it covers the client area, shows its title in the navigation bar
// and has its "Cancel" button at the bottom left and its "OK" button at the bottom right.

#include "DeviceScreen.h"

#include <QDialog>

class QPushButton;

class DeviceDialog : public QDialog {
    Q_OBJECT
public:
    static constexpr int kWidth = DeviceScreen::kWidth;
    static constexpr int kHeight = DeviceScreen::kClientHeight;
    static constexpr int kButtonHeight = 22;
    static constexpr int kMargin = 4;

    DeviceDialog(const QString& className, const QString& title, QWidget* parent);

    // Runs the dialog modally on the screen of its parent; Accepted or Rejected.
    int run();

protected:
    // The area above the buttons, for the dialog's controls.
    QWidget* content() const { return m_content; }
    // Adds the "OK" button (id 1) at the bottom right; it calls onOk.
    QPushButton* addOkButton(const QString& text = QStringLiteral("OK"));
    // Adds the "Cancel" button (id 2) at the bottom left; it rejects the dialog.
    QPushButton* addCancelButton();
    // What OK does: accepts the dialog.
    virtual void onOk() { accept(); }
    virtual DeviceScreen::Placement placement() const { return DeviceScreen::Placement::ClientArea; }

    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_content = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
};
