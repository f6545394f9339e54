#pragma once
// What the item list editor asks of the users' side when it edits the user list (KovUserList):
// whether a typed name can be a user, deleting a user with the user's databases, and the offer to
// make a user added during the visit current. The shell's user management implements it.

#include <QString>

class ItemListDialog;

class ItemListUserMode {
public:
    virtual ~ItemListUserMode() = default;

    // Why name cannot be added as a user (the text is shown as it is), or the empty string to accept it.
    virtual QString refusal(const QString& name) {
        Q_UNUSED(name);
        return {};
    }
    // Delete on the user list, with name selected: confirms, deletes the user's databases and record,
    // refills or closes editor as it needs.
    virtual void deleteUser(ItemListDialog& editor, const QString& name) = 0;
    // OK, after added was added during the visit: the name the editor hands back (added, or the
    // current user's display name to keep the current user).
    virtual QString chooseCurrentUser(const QString& added) = 0;
};
