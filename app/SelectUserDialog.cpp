#include "SelectUserDialog.h"

#include "MainDialog.h"
#include "MessageBox.h"
#include "UserList.h"
#include "resource.h"

#include <QListWidget>
#include <QVBoxLayout>

SelectUserDialog::SelectUserDialog(MainDialog& main, QWidget* parent)
    : DeviceDialog(QStringLiteral("SelectUserDialog"), QStringLiteral("Select a user"), parent), m_main(main) {
    m_list = new QListWidget(content());
    m_list->setObjectName(QStringLiteral("c%1").arg(IDC_USERLIST));
    auto* layout = new QVBoxLayout(content());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    addOkButton();
}

QString SelectUserDialog::choose() {
    m_chosen.clear();
    const std::optional<QStringList> names = UserList::names();
    if (!names) {
        MessageBoxW(this, QStringLiteral("Error accessing database"), QStringLiteral("Kovalin"),
                    MB_OK | MB_ICONEXCLAMATION);
        return {};
    }
    m_list->clear();
    m_list->addItems(*names);
    run();
    return m_chosen;
}

void SelectUserDialog::onOk() {
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    if (selected.isEmpty()) {
        MessageBoxW(this, kSelectAUser, QStringLiteral("Kovalin"), MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    m_chosen = selected.first()->text();
    if (m_chosen != UserList::kAddNewUser) {
        m_main.SetCurrentUser(m_chosen);
        m_main.ReloadForUser();
    }
    accept();
}
