// Switch User, Manage Users and the editor's user mode on the whole program, driven through their
// widgets; the user list and the databases are read back with plain SQL. Which names are refused and
// which databases a row owns are the user list's (tests/store).

#include "Clock.h"
#include "NameList.h"
#include "ShellPageFactory.h"
#include "ShellTestSupport.h"
#include "SqlLogWriter.h"
#include "SqlReader.h"
#include "StoredDays.h"
#include "UserList.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace {
const QStringList kReloadAll = {"upper reload", "lower reload",    "aerobic reload", "food reload",
                                "today reload", "calendar reload", "reports reload"};

void chooseUser(const QString& text, QStringList* shown = nullptr) {
    whenShown(QStringLiteral("SelectUserDialog"), [=](QWidget* dialog) {
        if (shown != nullptr) {
            *shown = listRows(dialog);
        }
        press(dialog, "c1", text);
    });
}
} // namespace

class UsersTest : public ShellTest {
protected:
    // The user list's rows in the list's order (by text, case-sensitive).
    static QString storedRows() { return NameList(UserList::kDatabaseName).items().value_or(QStringList()).join('|'); }
    // The day's values in db that are not empty, 0, "no choice" or the notes placeholder, as
    // "number=value" in id order (the key left out).
    QString valuesOf(const QString& db, const QDate& day) const {
        return SqlReader(m_device.paths().objectStore())
            .value("SELECT group_concat((propid >> 16) || '=' || value, ',') FROM (SELECT propid, value FROM props "
                   "WHERE record = (SELECT r.oid FROM records r JOIN databases d ON r.db = d.oid JOIN props k ON "
                   "k.record = r.oid WHERE d.name = ? AND k.propid = 4194368 AND k.value = ?) AND propid != 4194368 "
                   "AND value NOT IN (0, 65535, -1, '', '<Click to add Notes>') ORDER BY propid)",
                   {db, StoredDays::keyOf(day)})
            .toString();
    }
    void manageUsers(std::function<void(QWidget*)> act) {
        whenShown(QStringLiteral("ItemListDialog"), std::move(act));
        trigger(32862);
    }
    QStringList reloads() const { return m_factory.log.filter(QStringLiteral(" reload")); }
};

TEST_F(UsersTest, SwitchUserMakesTheChosenUserCurrentStoresItAndReloadsEveryPageTwice) {
    ASSERT_EQ(UserList::add("ann"), UserList::AddResult::Added);
    start();
    QStringList shown;
    bool stayedOpen = false;
    whenShown(QStringLiteral("SelectUserDialog"), [&](QWidget* dialog) {
        shown = listRows(dialog);
        press(dialog, "c1");
        stayedOpen = dialog->isVisible();
        press(dialog, "c1", "ann");
    });
    trigger(32863);
    EXPECT_EQ(shown, QStringList({"<add new user>", "ann", "Default"}));
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(m_boxes.texts(), QStringList{"Please select a user"});
    EXPECT_EQ(main().foodDatabaseName(), "Kov2Foodann");
    EXPECT_EQ(reloads(), kReloadAll + kReloadAll);
}

TEST_F(UsersTest, AddNewUserOpensTheEditorWhoseAddedUserBecomesCurrentOrElseTheDefaultUser) {
    start();
    main().SetCurrentUser("Bob");
    QString offer;
    for (const char* answer : {"c1", "c2"}) {
        chooseUser("<add new user>");
        whenShown(QStringLiteral("ItemListDialog"), [&](QWidget* editor) {
            typeText(editor, "c1008", answer == QString("c1") ? "Zoe" : "Max");
            press(editor, "c1002");
            answerConfirm(answer, &offer);
            press(editor, "c1");
        });
        trigger(32863);
    }
    EXPECT_EQ(offer, "Would you like to make Max the current user?  Click OK to make Max the current user, or Cancel "
                     "to continue using Zoe");
    EXPECT_EQ(main().GetUserName(), "Zoe");
    // Nobody added: the Default user.
    chooseUser("<add new user>");
    whenShown(QStringLiteral("ItemListDialog"), [](QWidget* editor) { press(editor, "c1"); });
    trigger(32863);
    EXPECT_EQ(main().currentUserName(), "");
    EXPECT_EQ(storedRows(), "<add new user>|Default|Max|Zoe");
}

TEST_F(UsersTest, ManageUsersRefusesBadNamesOffersTheTypedOneAndChangesNothingUnlessAUserIsHandedBack) {
    start();
    main().SetCurrentUser("Ann");
    m_factory.log.clear();
    QString offer;
    manageUsers([&](QWidget* editor) {
        typeText(editor, "c1008", "Ann/Bob");
        press(editor, "c1002");
        typeText(editor, "c1008", "Cy");
        // The offer to add the name still typed, then the one to make it current, declined.
        whenShown(QStringLiteral("ConfirmDialog"), [&](QWidget* confirm) {
            press(confirm, "c1");
            answerConfirm("c2", &offer);
        });
        press(editor, "c1");
    });
    EXPECT_EQ(m_boxes.texts(),
              QStringList{"A user's name cannot contain any of \\ / : * ? \" < > | or control characters."});
    EXPECT_EQ(offer, "Would you like to make Cy the current user?  Click OK to make Cy the current user, or Cancel to "
                     "continue using Ann");
    EXPECT_EQ(storedRows(), "<add new user>|Cy|Default");
    EXPECT_EQ(main().GetUserName(), "Ann");
    EXPECT_EQ(reloads(), kReloadAll);

    m_factory.log.clear();
    manageUsers([](QWidget* editor) { press(editor, "c1"); });
    EXPECT_TRUE(reloads().isEmpty());
}

TEST_F(UsersTest, DeletingAUserNeedsYesTypedAndOk) {
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    start();
    QStringList shown;
    // Which words count as yes is the confirmation's own test; its question shows in the user-delete picture.
    manageUsers([&](QWidget* editor) {
        answerConfirm("c2", nullptr, "yes");
        press(editor, "c1030", "Ann");
        answerConfirm("c1", nullptr, "yes");
        press(editor, "c1030", "Ann");
        shown = listRows(editor);
        press(editor, "c1");
    });
    EXPECT_EQ(m_boxes.texts(), QStringList{"Operation Cancelled"});
    EXPECT_EQ(shown, QStringList({"<add new user>", "Default"}));
    EXPECT_EQ(storedRows(), "<add new user>|Default");
}

TEST_F(UsersTest, DeletingTheCurrentUserAsksForAnotherAndARowAlreadyGoneIsReported) {
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    ASSERT_EQ(UserList::add("Bob"), UserList::AddResult::Added);
    start();
    main().SetCurrentUser("Ann");
    m_factory.log.clear();
    manageUsers([&](QWidget* editor) {
        ASSERT_EQ(UserList::remove("Bob"), UserList::DeleteResult::Deleted);
        answerConfirm("c1", nullptr, "yes");
        press(editor, "c1030", "Bob");
        answerConfirm("c1", nullptr, "yes");
        chooseUser("Default");
        press(editor, "c1030", "Ann");
    });
    EXPECT_EQ(m_boxes.texts(), QStringList({"Error deleting entry",
                                            "The current user data has been deleted.  Please select another user."}));
    EXPECT_EQ(main().currentUserName(), "");
    // Chosen in the select-user dialog, then made current again as the editor's answer.
    EXPECT_EQ(reloads(), kReloadAll + kReloadAll);

    // "<add new user>" instead keeps the editor open; a user added there but declined as current
    // leaves the Default user current, never the deleted one.
    ASSERT_EQ(UserList::add("Cy"), UserList::AddResult::Added);
    main().SetCurrentUser("Cy");
    bool editorOpen = false;
    manageUsers([&](QWidget* editor) {
        answerConfirm("c1", nullptr, "yes");
        chooseUser("<add new user>");
        press(editor, "c1030", "Cy");
        editorOpen = editor->isVisible();
        typeText(editor, "c1008", "Dee");
        press(editor, "c1002");
        answerConfirm("c2");
        press(editor, "c1");
    });
    EXPECT_TRUE(editorOpen);
    EXPECT_EQ(main().currentUserName(), "");
}

// Default's day on every log, Bob new: once he is current each page shows his new day, and a change there
// stores what was typed and nothing of Default's.
TEST_F(UsersTest, AUserSwitchedToKeepsOnlyWhatIsTypedOnHisOwnNewDayOnEveryPage) {
    const QDate today(2024, 3, 14);
    Clock::setFixed(QDateTime(today, QTime(9, 41)));
    using Log = SqlLogWriter;
    Log sql(m_device.paths().objectStore());
    sql.writeDay("Kov2Food", today,
                 {{1002, Log::kI2, 182}, {1003, Log::kR8, 18.5}, {1154, Log::kI2, 120}, {1152, Log::kI2, 7}});
    for (const char* log : {"Kov2AUpperBody", "Kov2ALowerBody"}) {
        sql.writeDay(log, today,
                     {{102, Log::kI2, 6}, {103, Log::kI2, 30}, {105, Log::kUI2, 1}, Log::text(1132, "Default's")});
    }
    sql.writeDay("Kov2Aerobic", today, {Log::text(701, "Running"), {722, Log::kR8, 3.5}, {102, Log::kI2, 6}});
    ShellPageFactory pages;
    start(false, &pages);
    // Added and made current in Manage Users: the pages are reloaded once.
    manageUsers([](QWidget* editor) {
        typeText(editor, "c1008", "Bob");
        press(editor, "c1002");
        answerConfirm("c1");
        press(editor, "c1");
    });
    ASSERT_EQ(main().GetUserName(), "Bob");

    auto typeNumber = [](QWidget* page, int id, const char* keys) {
        auto* edit = page->findChild<QLineEdit*>(QStringLiteral("c%1").arg(id));
        edit->selectAll();
        QTest::keyClicks(edit, keys);
        QTest::keyClick(edit, Qt::Key_Return);
    };
    typeNumber(main().page(4), 1351, "6");
    // Both regions of a day are one workout: Completed on the upper body marks the lower body too.
    main().page(1)->findChild<QCheckBox*>("c1015")->click();
    typeNumber(main().page(3), 1104, "2");
    EXPECT_EQ(m_boxes.texts(), QStringList());
    // Bob's own start is the clock's 9:41, which his first visit wrote; his ratings have no choice.
    EXPECT_EQ(valuesOf("Kov2FoodBob", today), "1001=6");
    EXPECT_EQ(valuesOf("Kov2AUpperBodyBob", today), "102=9,103=41,105=1");
    EXPECT_EQ(valuesOf("Kov2ALowerBodyBob", today), "102=9,103=41,105=1");
    EXPECT_EQ(valuesOf("Kov2AerobicBob", today), "102=9,103=41,722=2.0");
    Clock::setFixed(std::nullopt);
}
