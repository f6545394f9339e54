#pragma once
// The people who share the device: Switch User (32863) and Manage Users (32862), and the item list
// editor's user mode: which names can be users, deleting a user with the user's six databases, and
// the offer to make a user added in the editor current.

#include "ItemListUserMode.h"

#include <QString>

#include <optional>

class MainDialog;
class QWidget;

class UserManager : public ItemListUserMode {
public:
    static inline const QString kDeleteQuestion = QStringLiteral(
        "This will delete the user and their Kovalin data.  To proceed, type 'yes' in the box and click OK.");
    static inline const QString kCancelled = QStringLiteral("Operation Cancelled");
    static inline const QString kCurrentDeleted =
        QStringLiteral("The current user data has been deleted.  Please select another user.");

    explicit UserManager(MainDialog& main) : m_main(main) {}

    // Switch User: the select-user dialog, then the editor when "<add new user>" was chosen, then
    // the chosen (or added) user made current, the pages reloaded and Today repainted.
    void switchUser();
    // Manage Users: the editor on the user list; a user it hands back is made current.
    void manageUsers();

    // ItemListUserMode.
    QString refusal(const QString& name) override;
    void deleteUser(ItemListDialog& editor, const QString& name) override;
    QString chooseCurrentUser(const QString& added) override;

private:
    // Runs the editor on the user list: the user to make current, or std::nullopt for no change.
    // When the current user was deleted and no other was chosen, the Default user ("").
    std::optional<QString> editUsers();
    void makeCurrent(const QString& name);
    void tell(QWidget* owner, const QString& text);

    MainDialog& m_main;
    // The editor while it runs, so that its questions stand over it.
    ItemListDialog* m_editor = nullptr;
    // The current user deleted during this visit of the editor (empty when not).
    QString m_deletedCurrent;
};
