#pragma once
// The item list editor (dialog 175): adds names to and deletes names from one name-list database
// (exercises, foods, aerobic exercises, courses, users). The caller sets the database's name, runs
// the editor and afterwards reads the name it hands back: the last name added during the visit.
// On the user list (KovUserList) the editor shows the user prompts and leaves deleting a user and
// the choice of the current user to its ItemListUserMode.

#include "DeviceDialog.h"

class ItemListUserMode;
class QLabel;
class QLineEdit;
class QListWidget;

class ItemListDialog : public DeviceDialog {
    Q_OBJECT
public:
    static inline const QString kUserListName = QStringLiteral("KovUserList");
    static inline const QString kAlreadyExists = QStringLiteral("This entry already exists");
    static inline const QString kSelectToDelete = QStringLiteral("Please select an item to delete");
    static inline const QString kErrorDeleting = QStringLiteral("Error deleting entry");
    static inline const QString kErrorAccessing = QStringLiteral("Error accessing database");

    explicit ItemListDialog(QWidget* parent);

    void setDatabaseName(const QString& name) { m_databaseName = name; }
    QString databaseName() const { return m_databaseName; }
    bool isUserList() const { return m_databaseName == kUserListName; }
    // The users' side for the user list (not owned); without it the user list is edited like any list.
    void setUserMode(ItemListUserMode* userMode) { m_userMode = userMode; }

    // Opens the editor on the database (creating it empty when missing) and runs it modally.
    int edit();
    // The name handed back: the last name added during the visit, or in user mode the user chosen.
    QString nameHandedBack() const { return m_handedBack; }
    QString lastAdded() const { return m_lastAdded; }

    // Empties the list box and fills it again from the database; false (after saying so) when the
    // database cannot be read.
    bool refill();
    // The text of the selected row, or the empty string.
    QString selectedText() const;
    // Ends the visit at once, handing name back (the user mode, after the current user was deleted).
    void closeHandingBack(const QString& name);

protected:
    void onOk() override;

private:
    void add();
    void deleteSelected();
    // Adds text to the database and the list box; false when it is there already or cannot be added.
    bool addText(const QString& text);
    void report(const QString& text);

    QLabel* m_prompt1 = nullptr;
    QLineEdit* m_edit = nullptr;
    QLabel* m_prompt2 = nullptr;
    QListWidget* m_list = nullptr;
    QString m_databaseName;
    QString m_lastAdded;
    QString m_handedBack;
    ItemListUserMode* m_userMode = nullptr;
};
