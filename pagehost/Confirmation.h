#pragma once
// What the confirmation dialog is asked, and what its caller learns.

#include <QString>

struct ConfirmRequest {
    QString text;
    bool yesBox = false;      // 'yes' mode: OK confirms only when the box holds exactly "yes"
    bool dontShowBox = false; // shows "Don't show this message again."; checked, OK writes DontShow = 1
};

struct ConfirmResult {
    bool okPressed = false;
    bool confirmed = false;
    friend bool operator==(const ConfirmResult&, const ConfirmResult&) = default;
};
