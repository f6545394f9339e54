#include "ItemListDialog.h"

#include "ConfirmDialog.h"
#include "ItemListUserMode.h"
#include "MessageBox.h"
#include "NameList.h"
#include "RecordLimits.h"
#include "UserList.h"
#include "resource.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {
const QString kItemPrompt1 = QStringLiteral("Enter an item here, and click 'add'...");
const QString kItemPrompt2 = QStringLiteral("...or highlight an existing item and choose 'Delete' to remove it.");
const QString kUserPrompt1 = QStringLiteral("Type in the name of a new user and click Add");
const QString kUserPrompt2 =
    QStringLiteral("or, highlight the name of an existing user and click Delete to delete them");

QString controlName(int id) {
    return QStringLiteral("c%1").arg(id);
}

// A sorted list box orders its rows as the device's did: ignoring case, and by case among equals.
bool sortsBefore(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

void insertSorted(QListWidget* list, const QString& text) {
    int row = 0;
    while (row < list->count() && !sortsBefore(text, list->item(row)->text())) {
        ++row;
    }
    list->insertItem(row, text);
}

QLabel* makePrompt(QWidget* parent, int id) {
    auto* label = new QLabel(parent);
    label->setObjectName(controlName(id));
    label->setWordWrap(true);
    return label;
}
} // namespace

ItemListDialog::ItemListDialog(QWidget* parent) : DeviceDialog(QStringLiteral("ItemListDialog"), QString(), parent) {
    m_prompt1 = makePrompt(content(), IDC_ITEM_PROMPT1);
    m_edit = new QLineEdit(content());
    m_edit->setObjectName(controlName(IDC_ITEM_EDIT));
    m_edit->setMaxLength(RecordLimits::kMaxNameLength);
    auto* addButton = new QPushButton(QStringLiteral("Add"), content());
    addButton->setObjectName(controlName(IDC_ITEM_ADD));
    addButton->setAutoDefault(false);
    m_prompt2 = makePrompt(content(), IDC_ITEM_PROMPT2);
    m_list = new QListWidget(content());
    m_list->setObjectName(controlName(IDC_ITEM_LIST));
    auto* deleteButton = new QPushButton(QStringLiteral("Delete"), content());
    deleteButton->setObjectName(controlName(IDC_ITEM_DELETE));
    deleteButton->setAutoDefault(false);

    auto* layout = new QGridLayout(content());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(4);
    layout->addWidget(m_prompt1, 0, 0, 1, 2);
    layout->addWidget(m_edit, 1, 0);
    layout->addWidget(addButton, 1, 1);
    layout->addWidget(m_prompt2, 2, 0, 1, 2);
    layout->addWidget(m_list, 3, 0, 1, 2);
    layout->addWidget(deleteButton, 4, 1);
    layout->setRowStretch(3, 1);
    layout->setColumnStretch(0, 1);

    connect(addButton, &QPushButton::clicked, this, &ItemListDialog::add);
    connect(deleteButton, &QPushButton::clicked, this, &ItemListDialog::deleteSelected);
    addOkButton();
}

int ItemListDialog::edit() {
    m_lastAdded.clear();
    m_handedBack.clear();
    m_prompt1->setText(isUserList() ? kUserPrompt1 : kItemPrompt1);
    m_prompt2->setText(isUserList() ? kUserPrompt2 : kItemPrompt2);
    refill();
    return run();
}

bool ItemListDialog::refill() {
    const NameList list(m_databaseName);
    m_list->clear();
    std::optional<QStringList> items;
    // The user list is never left empty: it gets its two fixed rows back.
    if (isUserList() ? UserList::fill() : list.ensureExists()) {
        items = list.items();
    }
    if (!items) {
        report(kErrorAccessing);
        return false;
    }
    for (const QString& item : *items) {
        insertSorted(m_list, item);
    }
    return true;
}

QString ItemListDialog::selectedText() const {
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void ItemListDialog::closeHandingBack(const QString& name) {
    m_handedBack = name;
    accept();
}

void ItemListDialog::add() {
    const QString text = m_edit->text();
    if (!text.isEmpty() && addText(text)) {
        m_edit->clear();
    }
    // The next name is typed straight away, with no tap on the edit box first.
    m_edit->setFocus();
}

bool ItemListDialog::addText(const QString& text) {
    if (isUserList() && m_userMode != nullptr) {
        if (const QString refusal = m_userMode->refusal(text); !refusal.isEmpty()) {
            report(refusal);
            return false;
        }
    }
    switch (NameList(m_databaseName).add(text)) {
    case NameList::AddResult::Added:
        insertSorted(m_list, text);
        m_lastAdded = text;
        return true;
    case NameList::AddResult::AlreadyThere:
        report(kAlreadyExists);
        return false;
    case NameList::AddResult::Failed:
        break;
    }
    report(kErrorAccessing);
    return false;
}

void ItemListDialog::deleteSelected() {
    const QString text = selectedText();
    if (m_list->selectedItems().isEmpty()) {
        report(kSelectToDelete);
        return;
    }
    if (isUserList() && m_userMode != nullptr) {
        m_userMode->deleteUser(*this, text);
        return;
    }
    if (!NameList(m_databaseName).remove(text)) {
        report(kErrorDeleting);
        return;
    }
    refill();
}

void ItemListDialog::onOk() {
    const QString text = m_edit->text();
    if (!text.isEmpty()) {
        ConfirmDialog offer(this);
        const ConfirmResult answer = offer.ask({QStringLiteral("Would you like to add ") + text +
                                                QStringLiteral(" to the list?  Click OK to add ") + text +
                                                QStringLiteral(" to the list, or Cancel to continue without adding.")});
        if (answer.confirmed && addText(text)) {
            m_edit->clear();
        }
    }
    m_handedBack = m_lastAdded;
    if (isUserList() && m_userMode != nullptr && !m_lastAdded.isEmpty()) {
        m_handedBack = m_userMode->chooseCurrentUser(m_lastAdded);
    }
    accept();
}

void ItemListDialog::report(const QString& text) {
    MessageBoxW(this, text, QStringLiteral("Kovalin"), MB_OK | MB_ICONEXCLAMATION);
}
