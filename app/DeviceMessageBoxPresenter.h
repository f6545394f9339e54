#pragma once
// The program's message-box presenter: every MessageBoxW shows a DeviceMessageBox on the screen of
// its owner (or on the current screen when the owner is on none).

#include "MessageBoxPresenter.h"

class DeviceMessageBoxPresenter : public MessageBoxPresenter {
public:
    // Installs itself for its lifetime.
    DeviceMessageBoxPresenter();
    ~DeviceMessageBoxPresenter() override;
    DeviceMessageBoxPresenter(const DeviceMessageBoxPresenter&) = delete;
    DeviceMessageBoxPresenter& operator=(const DeviceMessageBoxPresenter&) = delete;

    int show(QObject* owner, const QString& text, const QString& caption, UINT type) override;

private:
    MessageBoxPresenter* m_previous = nullptr;
};
