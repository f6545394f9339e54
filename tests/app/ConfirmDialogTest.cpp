#include "ConfirmDialog.h"
#include "RecordDatabase.h"
#include "Settings.h"
#include "ShellPageFactory.h"
#include "ShellTestSupport.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
struct Answer {
    QString typed;
    bool tick = false;
    const char* button = "c1";
};

class ConfirmDialogTest : public ShellTest {
protected:
    // Answers the next confirmation: types into the 'yes' box, ticks the check box, presses the button.
    // What it showed goes to m_shown, and the number of message boxes shown before it to m_boxesBefore.
    void answer(const Answer& answer) {
        whenShown(QStringLiteral("ConfirmDialog"), [this, answer](QWidget* dialog) {
            m_shown.text = dialog->findChild<QLabel*>(QStringLiteral("c1310"))->text();
            m_shown.yesBox = dialog->findChild<QLineEdit*>(QStringLiteral("c1312"))->isVisible() &&
                             dialog->findChild<QLabel*>(QStringLiteral("c1311"))->isVisible();
            m_shown.dontShowBox = dialog->findChild<QCheckBox*>(QStringLiteral("c1313"))->isVisible();
            m_boxesBefore << static_cast<int>(m_boxes.texts().size());
            dialog->findChild<QLineEdit*>(QStringLiteral("c1312"))->setText(answer.typed);
            dialog->findChild<QCheckBox*>(QStringLiteral("c1313"))->setChecked(answer.tick);
            dialog->findChild<QPushButton*>(QLatin1String(answer.button))->click();
        });
    }
    ConfirmResult ask(const ConfirmRequest& request, const Answer& given) {
        answer(given);
        ConfirmDialog dialog(nullptr);
        return dialog.ask(request);
    }
    static ConfirmRequest yesMode() { return {QStringLiteral("This will delete the user."), true, false}; }

    ConfirmRequest m_shown;
    QList<int> m_boxesBefore;
};
} // namespace

TEST_F(ConfirmDialogTest, InYesModeOnlyTheExactLowerCaseWordConfirms) {
    // The question and its 'yes' box show in the user-delete picture.
    EXPECT_EQ(ask(yesMode(), {QStringLiteral("yes")}), (ConfirmResult{true, true}));
    for (const char* typed : {"Yes", "YES", "yes ", "", "y"}) {
        EXPECT_EQ(ask(yesMode(), {QString::fromLatin1(typed)}), (ConfirmResult{true, false})) << typed;
    }
    EXPECT_EQ(ask(yesMode(), {QStringLiteral("yes"), false, "c2"}), (ConfirmResult{false, false}));
}

TEST_F(ConfirmDialogTest, WithoutYesModeOkConfirmsAndTheCheckBoxWritesDontShowOnlyWithOk) {
    const ConfirmRequest plain{QStringLiteral("Make Ann the current user?"), false, false};
    EXPECT_EQ(ask(plain, {}), (ConfirmResult{true, true}));
    EXPECT_FALSE(m_shown.yesBox);
    EXPECT_FALSE(m_shown.dontShowBox);

    // Ticked, Cancel writes nothing; what OK writes, ticked or not, is checked with the start-up below.
    const ConfirmRequest notice{QStringLiteral("Notes"), false, true};
    EXPECT_EQ(ask(notice, {{}, true, "c2"}), (ConfirmResult{false, false}));
    EXPECT_TRUE(m_shown.dontShowBox);
    EXPECT_FALSE(stored(Settings::kDontShow).isValid());
}

TEST_F(ConfirmDialogTest, StartUpAnnouncesVersionOneDataThenShowsTheReleaseNotesUntilTheUserAsksNotToSeeThemAgain) {
    ShellPageFactory pages;
    // No version 1 data: the notes alone; unticked, OK leaves them on for the next start.
    answer({});
    start(true, &pages);
    // The notes' text and boxes show in the release-notes picture.
    EXPECT_TRUE(m_shown.text.startsWith(QStringLiteral("*Kovalin 2.0 Release Notes:")));
    EXPECT_FALSE(stored(Settings::kDontShow).isValid());

    // Version 1 data is announced before the notes; ticked, OK turns both off.
    m_screen.reset();
    ASSERT_TRUE(RecordDatabase::Create(QStringLiteral("KovUpperBody"), 12345, PROP_TAG(CEVT_FILETIME, 64)));
    answer({{}, true});
    start(true, &pages);
    EXPECT_EQ(m_boxesBefore, QList<int>({0, 1}));
    EXPECT_EQ(m_boxes.texts(),
              QStringList{"Version 1.x Kovalin data is on your device.  If you would like to import it "
                          "into Kovalin 2.0, choose 'Menu' 'Utilities' and 'Import.'"});
    EXPECT_EQ(stored(Settings::kDontShow), 1);

    m_screen.reset();
    m_boxes.clear();
    answer({});
    start(true, &pages);
    EXPECT_EQ(m_boxesBefore.size(), 2) << "the notes came up again";
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}
