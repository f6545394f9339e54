#pragma once
// The goals dialog: edits the user's goals, a free-text note kept in \Windows\goals.dat that the
// Today page shows. OK saves the text; a failure to save is reported and the dialog stays open.

#include "DeviceDialog.h"

class QPlainTextEdit;

class GoalsDialog : public DeviceDialog {
    Q_OBJECT
public:
    explicit GoalsDialog(QWidget* parent);

    QString text() const;

protected:
    void onOk() override;
    void showEvent(QShowEvent* event) override;

private:
    QPlainTextEdit* m_text = nullptr;
    bool m_readFailed = false;
};
