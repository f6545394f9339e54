#pragma once
// The confirmation dialog (dialog 215): a message, an optional box in which the user must type
// "yes", and an optional "Don't show this message again." box. The caller learns whether OK was
// pressed and whether the action is confirmed.

#include "Confirmation.h"
#include "DeviceDialog.h"

class QCheckBox;
class QLabel;
class QLineEdit;

class ConfirmDialog : public DeviceDialog {
    Q_OBJECT
public:
    explicit ConfirmDialog(QWidget* parent);

    // Shows request modally and returns what the user did.
    ConfirmResult ask(const ConfirmRequest& request);

protected:
    void onOk() override;

private:
    QLabel* m_text = nullptr;
    QLabel* m_yesLabel = nullptr;
    QLineEdit* m_yes = nullptr;
    QCheckBox* m_dontShow = nullptr;
    bool m_yesMode = false;
    ConfirmResult m_result;
};
