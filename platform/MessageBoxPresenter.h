#pragma once
// The one seam through which every message box is shown. The application installs a presenter
// that shows a QMessageBox; tests install one that answers from a queue and records the texts.

#include "WinTypes.h"

#include <QString>

class QObject;

class MessageBoxPresenter {
public:
    virtual ~MessageBoxPresenter() = default;
    // Shows text with caption and the MB_ type bits; returns the IDOK/IDCANCEL/IDYES/IDNO pressed.
    virtual int show(QObject* owner, const QString& text, const QString& caption, UINT type) = 0;
};
