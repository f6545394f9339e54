#include "UserManager.h"

#include "ConfirmDialog.h"
#include "ItemListDialog.h"
#include "MainDialog.h"
#include "MessageBox.h"
#include "SelectUserDialog.h"
#include "UserList.h"

void UserManager::switchUser() {
    QString chosen = SelectUserDialog(m_main, &m_main).choose();
    if (chosen.isEmpty()) {
        return;
    }
    if (chosen == UserList::kAddNewUser) {
        // Closing the editor without adding anyone leaves the empty name: the Default user.
        chosen = editUsers().value_or(QString());
    }
    makeCurrent(chosen);
}

void UserManager::manageUsers() {
    if (const std::optional<QString> name = editUsers()) {
        makeCurrent(*name);
    }
}

std::optional<QString> UserManager::editUsers() {
    ItemListDialog editor(&m_main);
    editor.setDatabaseName(UserList::kDatabaseName);
    editor.setUserMode(this);
    m_editor = &editor;
    m_deletedCurrent.clear();
    editor.edit();
    m_editor = nullptr;
    const QString handedBack = editor.nameHandedBack();
    if (!m_deletedCurrent.isEmpty()) {
        // Someone has to be current: the user added and accepted, else the Default user.
        const bool replaced = !handedBack.isEmpty() && handedBack != m_deletedCurrent;
        m_deletedCurrent.clear();
        return replaced ? handedBack : QString();
    }
    if (handedBack.isEmpty()) {
        return std::nullopt;
    }
    return handedBack;
}

void UserManager::makeCurrent(const QString& name) {
    m_main.SetCurrentUser(name);
    m_main.ReloadForUser();
    m_main.RepaintToday();
}

QString UserManager::refusal(const QString& name) {
    return UserList::refusal(name);
}

void UserManager::deleteUser(ItemListDialog& editor, const QString& name) {
    ConfirmDialog question(&editor);
    if (!question.ask({kDeleteQuestion, true}).confirmed) {
        tell(&editor, kCancelled);
        return;
    }
    switch (UserList::remove(name)) {
    case UserList::DeleteResult::Deleted:
        editor.refill();
        break;
    case UserList::DeleteResult::RowMissing:
        tell(&editor, ItemListDialog::kErrorDeleting);
        break;
    case UserList::DeleteResult::Failed:
        tell(&editor, ItemListDialog::kErrorAccessing);
        return;
    }
    if (name != m_main.GetUserName()) {
        return;
    }
    tell(&editor, kCurrentDeleted);
    const QString chosen = SelectUserDialog(m_main, &editor).choose();
    if (!chosen.isEmpty() && chosen != UserList::kAddNewUser) {
        editor.closeHandingBack(chosen);
        return;
    }
    // "<add new user>": the editor stays open for the new user's name.
    m_deletedCurrent = name;
}

QString UserManager::chooseCurrentUser(const QString& added) {
    const QString current = m_main.GetUserName();
    ConfirmDialog question(m_editor != nullptr ? static_cast<QWidget*>(m_editor) : &m_main);
    const ConfirmResult answer = question.ask(
        {QStringLiteral("Would you like to make ") + added + QStringLiteral(" the current user?  Click OK to make ") +
         added + QStringLiteral(" the current user, or Cancel to continue using ") + current});
    return answer.confirmed ? added : current;
}

void UserManager::tell(QWidget* owner, const QString& text) {
    MessageBoxW(owner, text, QStringLiteral("Kovalin"), MB_OK | MB_ICONEXCLAMATION);
}
