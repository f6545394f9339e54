#include "OptionsDialog.h"
#include "ShellTestSupport.h"
#include "SqlReader.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTest>

namespace {
const int kTopToBottom[] = {1126, 1037, 1124, 1123, 1127, 1125};
// The six values as the registry names them, in the order the tables below give them.
const QString kNames[] = {"PullWt", "CkDate", "FillIn", "ShowBox", "PullLast", "AsOne"};

class OptionsDialogTest : public ShellTest {
protected:
    // The six boxes from top to bottom: checked (c), unchecked (-) or hidden (h).
    static QString states(const OptionsDialog& dialog) {
        QString result;
        for (int id : kTopToBottom) {
            QCheckBox* box = dialog.box(id);
            result += !box->isVisible() ? QLatin1Char('h') : box->isChecked() ? QLatin1Char('c') : QLatin1Char('-');
        }
        return result;
    }
    static void press(OptionsDialog& dialog, const char* button) {
        dialog.findChild<QPushButton*>(QLatin1String(button))->click();
    }
    // The six values as stored, one digit each in the order of kNames; each must be a DWORD.
    QString storedSix() const {
        QString digits;
        for (const QString& name : kNames) {
            int type = 0;
            digits += stored(name, &type).toString();
            EXPECT_EQ(type, 4) << name.toStdString();
        }
        return digits;
    }
    void storeSix(const std::array<DWORD, 6>& values) {
        for (size_t i = 0; i < values.size(); ++i) {
            setNumber(kNames[i], values[i]);
        }
    }
    // A dialog opened after the values above were stored.
    static std::unique_ptr<OptionsDialog> open() {
        auto dialog = std::make_unique<OptionsDialog>(nullptr);
        dialog->show();
        return dialog;
    }
};
} // namespace

TEST_F(OptionsDialogTest, EachStoredValueIsShownInItsOwnBoxWithTheInvertedOnesOnUnlessOne) {
    EXPECT_EQ(states(*open()), QStringLiteral("c-h-c-")) << "without the key";
    // Values in the order PullWt, CkDate, FillIn, ShowBox, PullLast, AsOne.
    const struct {
        std::array<DWORD, 6> values;
        const char* states;
    } cases[] = {
        {{0, 0, 0, 0, 0, 0}, "c-h-c-"}, {{1, 0, 0, 0, 0, 0}, "cc--c-"}, {{1, 0, 1, 0, 0, 0}, "ccc-c-"},
        {{0, 0, 1, 0, 0, 0}, "c-h-c-"}, {{0, 1, 0, 0, 0, 0}, "c-hcc-"}, {{0, 0, 0, 1, 0, 0}, "c-h-cc"},
        {{0, 0, 0, 0, 1, 0}, "--h-c-"}, {{0, 0, 0, 0, 0, 1}, "c-h---"}, {{2, 2, 2, 2, 2, 2}, "c-h-c-"},
        {{1, 1, 1, 1, 1, 1}, "-ccc-c"},
    };
    for (const auto& c : cases) {
        storeSix(c.values);
        EXPECT_EQ(states(*open()), QString::fromLatin1(c.states)) << c.states;
    }
}

TEST_F(OptionsDialogTest, CancelWritesNothingAndOkWritesAllSixEachFromItsOwnBox) {
    auto cancelled = open();
    for (int id : kTopToBottom) {
        cancelled->box(id)->click();
    }
    press(*cancelled, "c2");
    EXPECT_EQ(SqlReader(m_device.paths().objectStore()).value(QStringLiteral("SELECT count(*) FROM registry")), 0);

    // Nothing stored yet: OK writes all six.
    press(*open(), "c1");
    EXPECT_EQ(storedSix(), "000000");

    // The boxes clicked and what OK then writes, in the order PullWt, CkDate, FillIn, ShowBox, PullLast, AsOne.
    const struct {
        std::vector<int> clicked;
        const char* written;
    } cases[] = {
        {{1126}, "000010"}, {{1037}, "100000"}, {{1037, 1124}, "101000"},
        {{1123}, "010000"}, {{1127}, "000001"}, {{1125}, "000100"},
    };
    for (const auto& c : cases) {
        storeSix({0, 0, 0, 0, 0, 0});
        auto dialog = open();
        for (int id : c.clicked) {
            QTest::mouseClick(dialog->box(id), Qt::LeftButton);
        }
        press(*dialog, "c1");
        EXPECT_EQ(storedSix(), QString::fromLatin1(c.written)) << c.written;
    }
}

TEST_F(OptionsDialogTest, PullWtShowsFillInWithTheStoredValueAndOkWritesItsLastState) {
    storeSix({1, 0, 1, 0, 0, 0});
    auto dialog = open();
    QCheckBox* pullWt = dialog->box(1037);
    QCheckBox* fillIn = dialog->box(1124);
    // Checked again, PullWt shows FillIn as stored, not as it stood on the screen.
    QTest::mouseClick(fillIn, Qt::LeftButton);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    EXPECT_FALSE(fillIn->isVisible());
    QTest::mouseClick(pullWt, Qt::LeftButton);
    EXPECT_TRUE(fillIn->isVisible());
    EXPECT_TRUE(fillIn->isChecked());
    setNumber(QStringLiteral("FillIn"), 0);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    EXPECT_FALSE(fillIn->isChecked());

    // Unchecked, PullWt hides FillIn, and OK writes FillIn as it last stood.
    QTest::mouseClick(fillIn, Qt::LeftButton);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    press(*dialog, "c1");
    EXPECT_EQ(storedSix(), "001000");
}
