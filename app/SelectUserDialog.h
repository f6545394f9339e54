#pragma once
// The select-user dialog (dialog 233, "Select a user"): the user list in a sorted list box and an
// "OK" that takes the selected row. A user chosen here is made current and the pages are reloaded
// before the dialog closes; "<add new user>" only closes it, for the caller to open the editor.

#include "DeviceDialog.h"

class MainDialog;
class QListWidget;

class SelectUserDialog : public DeviceDialog {
    Q_OBJECT
public:
    static inline const QString kSelectAUser = QStringLiteral("Please select a user");

    SelectUserDialog(MainDialog& main, QWidget* parent);

    // Fills the list (writing the two fixed rows when the list is new or empty) and runs the
    // dialog. The row chosen, or the empty string when the list cannot be read or the dialog was
    // closed without a choice.
    QString choose();

protected:
    void onOk() override;

private:
    MainDialog& m_main;
    QListWidget* m_list = nullptr;
    QString m_chosen;
};
