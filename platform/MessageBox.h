#pragma once
// MessageBoxW and the presenter it goes through (see MessageBoxPresenter).

#include "MessageBoxPresenter.h"

constexpr UINT MB_OK = 0x0000;
constexpr UINT MB_OKCANCEL = 0x0001;
constexpr UINT MB_YESNO = 0x0004;
constexpr UINT MB_ICONSTOP = 0x0010;
constexpr UINT MB_ICONERROR = MB_ICONSTOP;
constexpr UINT MB_ICONQUESTION = 0x0020;
constexpr UINT MB_ICONEXCLAMATION = 0x0030;
constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
constexpr UINT MB_ICONINFORMATION = 0x0040;
constexpr UINT MB_TYPEMASK = 0x000F; // the buttons
constexpr UINT MB_ICONMASK = 0x00F0;

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

// Shows a message box through the installed presenter. With none installed, the text is written
// to standard error and the box's default answer, its first button's, is returned: IDOK, or IDYES
// for MB_YESNO. The program's boxes all have their first button as the default.
int MessageBoxW(QObject* owner, const QString& text, const QString& caption, UINT type);
// Installs presenter (not owned); nullptr restores the default. Returns the one it replaces.
MessageBoxPresenter* setMessageBoxPresenter(MessageBoxPresenter* presenter);
