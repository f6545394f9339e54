#include "ItemListDialog.h"

#include "NameList.h"
#include "ShellTestSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace {
class ItemListDialogTest : public ShellTest {
protected:
    // Runs the editor on database through the main dialog, acting on it once it is up.
    QString edit(const QString& database, std::function<void(QWidget*)> act) {
        whenShown(QStringLiteral("ItemListDialog"), std::move(act));
        return main().editItemList(database);
    }
    // Types text where the focus is, as a person does (the editor opens, and Add leaves it, in the edit
    // box), and taps Add.
    static void add(QWidget* dialog, const QString& text) {
        dialog->findChild<QLineEdit*>(QStringLiteral("c1008"))->clear();
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("c1002")), Qt::LeftButton);
    }
    // The names stored in database, in the list's order.
    static QString stored(const QString& database) {
        return NameList(database).items().value_or(QStringList()).join('|');
    }
};

} // namespace

TEST_F(ItemListDialogTest, AddsNamesOnceEachAndCreatesAMissingListEmpty) {
    start();
    QStringList shown;
    const QString added = edit("KovTestList", [&](QWidget* dialog) {
        shown << listRows(dialog).join('|');
        add(dialog, "Leg Press");
        add(dialog, "Bench Dips");
        add(dialog, "Bench Dips");
        add(dialog, "bench dips");
        add(dialog, "");
        shown << listRows(dialog).join('|');
        press(dialog, "c1");
    });
    EXPECT_EQ(shown, QStringList({"", "Bench Dips|bench dips|Leg Press"}));
    EXPECT_EQ(m_boxes.texts(), QStringList{"This entry already exists"});
    EXPECT_EQ(added, "bench dips");
    EXPECT_EQ(stored("KovTestList"), "Bench Dips|Leg Press|bench dips");
}

TEST_F(ItemListDialogTest, DeletesTheSelectedNameWithoutAskingAndSaysWhatWentWrong) {
    start();
    ASSERT_TRUE(NameList("KovTestList").ensureExists({"Leg Press", "Squats", "Lunges"}));
    QStringList shown;
    edit("KovTestList", [&](QWidget* dialog) {
        press(dialog, "c1030");
        press(dialog, "c1030", "Squats");
        shown << listRows(dialog).join('|');
        // Gone behind the editor's back.
        ASSERT_TRUE(NameList("KovTestList").remove("Lunges"));
        press(dialog, "c1030", "Lunges");
        shown << listRows(dialog).join('|');
        press(dialog, "c1");
    });
    EXPECT_EQ(shown, QStringList({"Leg Press|Lunges", "Leg Press|Lunges"}));
    EXPECT_EQ(m_boxes.texts(), QStringList({"Please select an item to delete", "Error deleting entry"}));
    EXPECT_EQ(stored("KovTestList"), "Leg Press");
}

TEST_F(ItemListDialogTest, OkOffersToAddTheNameStillTyped) {
    start();
    const QString offer = "Would you like to add Rows to the list?  Click OK to add Rows to the list, or Cancel to "
                          "continue without adding.";
    for (const char* answer : {"c2", "c1"}) {
        QString asked;
        answerConfirm(answer, &asked);
        const QString added = edit("KovTestList", [](QWidget* dialog) {
            QTest::keyClicks(dialog->findChild<QLineEdit*>(QStringLiteral("c1008")), "Rows");
            press(dialog, "c1");
        });
        EXPECT_EQ(asked, offer);
        EXPECT_EQ(added, QString::fromLatin1(answer) == "c1" ? "Rows" : "");
        EXPECT_EQ(stored("KovTestList"), QString::fromLatin1(answer) == "c1" ? "Rows" : "");
    }
}
