// Switch User, Manage Users and the item list editor's user mode on the whole program, driven
// through their widgets; the user list, the databases and LastUser are read back with plain SQL.

#include "Clock.h"
#include "FoodRecords.h"
#include "ItemListDialog.h"
#include "NavigationBar.h"
#include "RecordDatabase.h"
#include "Settings.h"
#include "ShellPageFactory.h"
#include "ShellTestSupport.h"
#include "SqlReader.h"
#include "UserList.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace {
const QStringList kReloadAll = {"upper reload", "lower reload",    "aerobic reload", "food reload",
                                "today reload", "calendar reload", "reports reload"};

QStringList rowsOf(QWidget* dialog) {
    QStringList texts;
    auto* list = dialog->findChild<QListWidget*>(QStringLiteral("c1028"));
    for (int row = 0; row < list->count(); ++row) {
        texts << list->item(row)->text();
    }
    return texts;
}

void select(QWidget* dialog, const QString& text) {
    auto* list = dialog->findChild<QListWidget*>(QStringLiteral("c1028"));
    list->setCurrentItem(list->findItems(text, Qt::MatchExactly).value(0));
}

void click(QWidget* dialog, const char* name) {
    dialog->findChild<QPushButton*>(QString::fromLatin1(name))->click();
}

void type(QWidget* dialog, const char* edit, const QString& text) {
    auto* box = dialog->findChild<QLineEdit*>(QString::fromLatin1(edit));
    box->clear();
    QTest::keyClicks(box, text);
}

void add(QWidget* dialog, const QString& name) {
    type(dialog, "c1008", name);
    click(dialog, "c1002");
}

// Answers the next confirmation: typed (when not null) into the 'yes' box, then button; its text
// goes to asked.
void answerConfirm(const char* button, QString* asked, const QString& typed = {}) {
    whenShown(QStringLiteral("ConfirmDialog"), [=](QWidget* dialog) {
        if (asked != nullptr) {
            *asked = dialog->findChild<QLabel*>(QStringLiteral("c1310"))->text();
        }
        if (!typed.isNull()) {
            type(dialog, "c1312", typed);
        }
        click(dialog, button);
    });
}

// Chooses text in the next select-user dialog, recording its rows in shown.
void chooseUser(const QString& text, QStringList* shown = nullptr) {
    whenShown(QStringLiteral("SelectUserDialog"), [=](QWidget* dialog) {
        if (shown != nullptr) {
            *shown = rowsOf(dialog);
        }
        select(dialog, text);
        click(dialog, "c1");
    });
}

const QString kDeleteQuestion =
    "This will delete the user and their Kovalin data.  To proceed, type 'yes' in the box and click OK.";
} // namespace

class UsersTest : public ShellTest {
protected:
    // Rows of the user list as stored, in the store's order.
    QString storedRows() const {
        return SqlReader(m_device.paths().objectStore())
            .value("SELECT group_concat(value, '|') FROM (SELECT p.value FROM props p JOIN records r ON "
                   "p.record = r.oid JOIN databases d ON r.db = d.oid WHERE d.name = 'KovUserList' ORDER BY "
                   "p.value)")
            .toString();
    }
    int databaseCount(const QString& suffix) const {
        return SqlReader(m_device.paths().objectStore())
            .value("SELECT count(*) FROM databases WHERE name IN (?, ?, ?, ?, ?, ?)",
                   {"Kov2AUpperBody" + suffix, "Kov2BUpperBody" + suffix, "Kov2ALowerBody" + suffix,
                    "Kov2BLowerBody" + suffix, "Kov2Food" + suffix, "Kov2Aerobic" + suffix})
            .toInt();
    }
    void createLogs(const QString& user) const {
        for (const QString& name : DatabaseCatalogue::userDatabaseNames(user)) {
            ASSERT_TRUE(DatabaseCatalogue::ensureDatedLog(name));
        }
    }
    // Runs Manage Users, acting on the editor once it is up.
    void manageUsers(std::function<void(QWidget*)> act) {
        whenShown(QStringLiteral("ItemListDialog"), std::move(act));
        trigger(32862);
    }
    QStringList reloads() const {
        QStringList found;
        for (const QString& line : m_factory.log) {
            if (line.endsWith(" reload")) {
                found << line;
            }
        }
        return found;
    }
};

TEST_F(UsersTest, SwitchUserMakesTheChosenUserCurrentReloadsEveryPageTwiceAndIsKeptOverARestart) {
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    ASSERT_EQ(UserList::add("ann"), UserList::AddResult::Added);
    start();
    auto* today = static_cast<RecordingPage*>(main().page(0));
    ASSERT_TRUE(waitUntil([today] { return today->paints() > 0; }));
    const int paints = today->paints();
    m_factory.log.clear();

    QStringList shown;
    QString title;
    bool stayedOpen = false;
    whenShown(QStringLiteral("SelectUserDialog"), [&](QWidget* dialog) {
        shown = rowsOf(dialog);
        title = screen().navigationBar().title();
        click(dialog, "c1");
        stayedOpen = dialog->isVisible();
        select(dialog, "Ann");
        click(dialog, "c1");
    });
    trigger(32863);
    EXPECT_EQ(shown, QStringList({"<add new user>", "Ann", "ann", "Default"}));
    EXPECT_EQ(title, "Select a user");
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(m_boxes.texts(), QStringList{"Please select a user"});
    EXPECT_EQ(main().GetUserName(), "Ann");
    EXPECT_EQ(main().foodDatabaseName(), "Kov2FoodAnn");
    EXPECT_EQ(stored(Settings::kLastUser), QVariant("Ann"));
    EXPECT_EQ(reloads(), kReloadAll + kReloadAll);
    EXPECT_TRUE(waitUntil([today, paints] { return today->paints() > paints; }));

    // Names are told apart by case.
    chooseUser("ann");
    trigger(32863);
    EXPECT_EQ(main().upperBodyADatabaseName(), "Kov2AUpperBodyann");

    m_screen.reset();
    start();
    EXPECT_EQ(main().GetUserName(), "ann");
    chooseUser("Default");
    trigger(32863);
    EXPECT_EQ(main().currentUserName(), "");
    EXPECT_EQ(stored(Settings::kLastUser), QVariant(QString()));
    // The list was there, with its rows: nothing was added to it.
    EXPECT_EQ(storedRows(), "<add new user>|Ann|Default|ann");
}

TEST_F(UsersTest, AddNewUserOpensTheEditorWhoseAddedUserBecomesCurrentOrElseTheDefaultUser) {
    start();
    main().SetCurrentUser("Bob");
    QString prompts;
    QString offer;
    chooseUser("<add new user>");
    whenShown(QStringLiteral("ItemListDialog"), [&](QWidget* editor) {
        prompts = editor->findChild<QLabel*>("c1065")->text() + " / " + editor->findChild<QLabel*>("c1066")->text();
        add(editor, "Zoe");
        answerConfirm("c1", &offer);
        click(editor, "c1");
    });
    trigger(32863);
    EXPECT_EQ(prompts, "Type in the name of a new user and click Add / or, highlight the name of an existing user "
                       "and click Delete to delete them");
    EXPECT_EQ(offer, "Would you like to make Zoe the current user?  Click OK to make Zoe the current user, or Cancel "
                     "to continue using Bob");
    EXPECT_EQ(main().GetUserName(), "Zoe");

    // Declined: the current user stays.
    chooseUser("<add new user>");
    whenShown(QStringLiteral("ItemListDialog"), [&](QWidget* editor) {
        add(editor, "Max");
        answerConfirm("c2", &offer);
        click(editor, "c1");
    });
    trigger(32863);
    EXPECT_EQ(offer, "Would you like to make Max the current user?  Click OK to make Max the current user, or Cancel "
                     "to continue using Zoe");
    EXPECT_EQ(main().GetUserName(), "Zoe");

    // Nobody added: the Default user.
    chooseUser("<add new user>");
    whenShown(QStringLiteral("ItemListDialog"), [](QWidget* editor) { click(editor, "c1"); });
    trigger(32863);
    EXPECT_EQ(main().currentUserName(), "");
    EXPECT_EQ(storedRows(), "<add new user>|Default|Max|Zoe");
}

TEST_F(UsersTest, ManageUsersRefusesNamesThatCannotNameDatabasesAndChangesNothingUnlessAUserIsChosen) {
    start();
    main().SetCurrentUser("Ann");
    m_factory.log.clear();
    QString offer;
    manageUsers([&](QWidget* editor) {
        for (const char* name : {"Default", "Abcdefghijklmnopqr", "Ann/Bob", " Ann", "Abcdefghijklmnopq"}) {
            add(editor, name);
        }
        type(editor, "c1008", "Cy");
        // The offer to add the name still typed, then the offer to make the last one added current.
        whenShown(QStringLiteral("ConfirmDialog"), [&](QWidget* confirm) {
            click(confirm, "c1");
            answerConfirm("c2", &offer);
        });
        click(editor, "c1");
    });
    EXPECT_EQ(m_boxes.texts(),
              QStringList({"This entry already exists", "A user's name can be at most 17 characters long.",
                           "A user's name cannot contain any of \\ / : * ? \" < > | or control characters.",
                           "A user's name cannot begin or end with a blank."}));
    EXPECT_EQ(offer, "Would you like to make Cy the current user?  Click OK to make Cy the current user, or Cancel to "
                     "continue using Ann");
    EXPECT_EQ(storedRows(), "<add new user>|Abcdefghijklmnopq|Cy|Default");
    EXPECT_EQ(main().GetUserName(), "Ann");
    EXPECT_EQ(stored(Settings::kLastUser), QVariant("Ann"));
    // Handing back the current user reloads it again.
    EXPECT_EQ(reloads(), kReloadAll);

    m_factory.log.clear();
    manageUsers([](QWidget* editor) { click(editor, "c1"); });
    EXPECT_TRUE(reloads().isEmpty());
}

TEST_F(UsersTest, DeletingAUserNeedsYesAndTakesTheSixDatabasesNamedByTheRow) {
    for (const char* user : {"", "Ann", "Bob"}) {
        createLogs(user);
    }
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    ASSERT_EQ(UserList::add("Bob"), UserList::AddResult::Added);
    start();
    main().SetCurrentUser("Bob");
    QString asked;
    QStringList shown;
    manageUsers([&](QWidget* editor) {
        select(editor, "Ann");
        answerConfirm("c1", &asked, "Yes");
        click(editor, "c1030");
        select(editor, "Ann");
        answerConfirm("c2", nullptr, "yes");
        click(editor, "c1030");
        select(editor, "Ann");
        answerConfirm("c1", nullptr, "yes");
        click(editor, "c1030");
        select(editor, "Default");
        answerConfirm("c1", nullptr, "yes");
        click(editor, "c1030");
        select(editor, "<add new user>");
        answerConfirm("c1", nullptr, "yes");
        click(editor, "c1030");
        shown = rowsOf(editor);
        click(editor, "c1");
    });
    EXPECT_EQ(asked, kDeleteQuestion);
    EXPECT_EQ(m_boxes.texts(), QStringList({"Operation Cancelled", "Operation Cancelled"}));
    EXPECT_EQ(shown, QStringList{"Bob"});
    EXPECT_EQ(databaseCount("Ann"), 0);
    EXPECT_EQ(databaseCount(""), 0);
    EXPECT_EQ(databaseCount("Bob"), 6);
    EXPECT_EQ(storedRows(), "Bob");
    EXPECT_EQ(main().GetUserName(), "Bob");

    // The list is not empty, so its fixed rows do not come back.
    chooseUser("Bob", &shown);
    trigger(32863);
    EXPECT_EQ(shown, QStringList{"Bob"});
}

TEST_F(UsersTest, DeletingTheCurrentUserAsksForAnotherAndARowAlreadyGoneIsReported) {
    createLogs("Ann");
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    ASSERT_EQ(UserList::add("Bob"), UserList::AddResult::Added);
    start();
    main().SetCurrentUser("Ann");
    m_factory.log.clear();
    manageUsers([&](QWidget* editor) {
        // Gone behind the editor's back.
        ASSERT_EQ(UserList::remove("Bob"), UserList::DeleteResult::Deleted);
        select(editor, "Bob");
        answerConfirm("c1", nullptr, "yes");
        click(editor, "c1030");
        select(editor, "Ann");
        answerConfirm("c1", nullptr, "yes");
        chooseUser("Default");
        click(editor, "c1030");
    });
    EXPECT_EQ(m_boxes.texts(), QStringList({"Error deleting entry",
                                            "The current user data has been deleted.  Please select another user."}));
    EXPECT_EQ(databaseCount("Ann"), 0);
    EXPECT_EQ(storedRows(), "<add new user>|Default");
    EXPECT_EQ(main().currentUserName(), "");
    // Chosen in the select-user dialog, then made current again as the editor's answer.
    EXPECT_EQ(reloads(), kReloadAll + kReloadAll);

    // Choosing "<add new user>" instead keeps the editor open; with nobody added, Default is current.
    ASSERT_EQ(UserList::add("Cy"), UserList::AddResult::Added);
    main().SetCurrentUser("Cy");
    bool editorOpen = false;
    manageUsers([&](QWidget* editor) {
        select(editor, "Cy");
        answerConfirm("c1", nullptr, "yes");
        chooseUser("<add new user>");
        click(editor, "c1030");
        editorOpen = editor->isVisible();
        click(editor, "c1");
    });
    EXPECT_TRUE(editorOpen);
    EXPECT_EQ(main().currentUserName(), "");
}

TEST_F(UsersTest, APageShowsTheDayOfTheUserSwitchedTo) {
    Clock::setFixed(QDateTime(QDate(2024, 3, 14), QTime(9, 41)));
    ShellPageFactory pages;
    FoodDayValues ann;
    ann.weight = 131;
    const FoodRecords annFood("Kov2FoodAnn");
    ASSERT_TRUE(annFood.EnsureDatabase() && annFood.CreateDay(QDate(2024, 3, 14)) != 0);
    ASSERT_TRUE(annFood.SaveDay(QDate(2024, 3, 14), ann));
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    start(false, &pages);
    main().SelectPage(4);
    auto* weight = main().page(4)->findChild<QLineEdit*>("c1353");
    ASSERT_NE(weight, nullptr);
    const QString before = weight->text();
    chooseUser("Ann");
    trigger(32863);
    EXPECT_EQ(weight->text(), "131");
    EXPECT_NE(before, "131");

    // A user with no databases yet: the pages show the day without a complaint.
    ASSERT_EQ(UserList::add("Bob"), UserList::AddResult::Added);
    chooseUser("Bob");
    trigger(32863);
    EXPECT_EQ(m_boxes.texts(), QStringList());
    EXPECT_TRUE(RecordDatabase::Exists("Kov2FoodBob"));
    Clock::setFixed(std::nullopt);
}
