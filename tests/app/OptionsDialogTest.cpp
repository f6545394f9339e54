#include "OptionsDialog.h"
#include "DeviceFonts.h"
#include "Settings.h"
#include "ShellTestSupport.h"
#include "SqlReader.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QPushButton>
#include <QTest>

namespace {
const int kTopToBottom[] = {1126, 1037, 1124, 1123, 1127, 1125};

class OptionsDialogTest : public ShellTest {
protected:
    OptionsDialogTest() { m_dialog.show(); }

    // The six boxes from top to bottom: checked (c), unchecked (-) or hidden (h).
    static QString states(const OptionsDialog& dialog) {
        QString result;
        for (int id : kTopToBottom) {
            QCheckBox* box = dialog.box(id);
            result += !box->isVisible() ? QLatin1Char('h') : box->isChecked() ? QLatin1Char('c') : QLatin1Char('-');
        }
        return result;
    }
    void click(int id) { QTest::mouseClick(m_dialog.box(id), Qt::LeftButton); }
    void press(const char* button) { m_dialog.findChild<QPushButton*>(QLatin1String(button))->click(); }
    // The six values as stored, "name=value/type", or "name=absent".
    QString storedSix() const {
        QStringList values;
        for (const QString& name : {Settings::kPullWt, Settings::kCkDate, Settings::kFillIn, Settings::kShowBox,
                                    Settings::kPullLast, Settings::kAsOne}) {
            int type = 0;
            const QVariant value = stored(name, &type);
            values.append(name + (value.isValid() ? QStringLiteral("=%1/%2").arg(value.toLongLong()).arg(type)
                                                  : QStringLiteral("=absent")));
        }
        return values.join(' ');
    }
    void storeSix(DWORD pullWt, DWORD ckDate, DWORD fillIn, DWORD showBox, DWORD pullLast, DWORD asOne) {
        setNumber(Settings::kPullWt, pullWt);
        setNumber(Settings::kCkDate, ckDate);
        setNumber(Settings::kFillIn, fillIn);
        setNumber(Settings::kShowBox, showBox);
        setNumber(Settings::kPullLast, pullLast);
        setNumber(Settings::kAsOne, asOne);
    }
    // A dialog opened after the values above were stored.
    std::unique_ptr<OptionsDialog> reopen() {
        auto dialog = std::make_unique<OptionsDialog>(nullptr);
        dialog->show();
        return dialog;
    }

    OptionsDialog m_dialog{nullptr};
};
} // namespace

TEST_F(OptionsDialogTest, WithoutTheKeyOnlyTheTwoInvertedBoxesAreOnCancelCreatesNothingAndOkAllSixValues) {
    EXPECT_EQ(m_dialog.windowTitle(), QStringLiteral("Options"));
    EXPECT_EQ(states(m_dialog), QStringLiteral("c-h-c-"));
    for (int id : {1126, 1037, 1123}) {
        click(id);
    }
    press("c2");
    EXPECT_EQ(SqlReader(m_device.paths().objectStore()).value(QStringLiteral("SELECT count(*) FROM registry")), 0);
    reopen()->findChild<QPushButton*>(QStringLiteral("c1"))->click();
    EXPECT_EQ(storedSix(), QStringLiteral("PullWt=0/4 CkDate=0/4 FillIn=0/4 ShowBox=0/4 PullLast=0/4 AsOne=0/4"));
}

TEST_F(OptionsDialogTest, StoredValuesAreShownWithTheInvertedOnesReadAsOnUnlessOne) {
    storeSix(1, 1, 1, 1, 1, 1);
    auto allOne = reopen();
    EXPECT_EQ(states(*allOne), QStringLiteral("-ccc-c"));

    // Anything but 1 counts as off for the plain values and as on for the inverted ones.
    storeSix(2, 2, 1, 2, 2, 2);
    auto others = reopen();
    EXPECT_EQ(states(*others), QStringLiteral("c-h-c-"));
    // The stale FillIn of 1 under PullWt off is not kept: the hidden box is unchecked.
    others->findChild<QPushButton*>(QStringLiteral("c1"))->click();
    EXPECT_EQ(storedSix(), QStringLiteral("PullWt=0/4 CkDate=0/4 FillIn=0/4 ShowBox=0/4 PullLast=0/4 AsOne=0/4"));
}

TEST_F(OptionsDialogTest, PullWtShowsFillInWithTheStoredValueAndOkWritesItsLastState) {
    storeSix(1, 0, 1, 0, 0, 0);
    auto dialog = reopen();
    QCheckBox* pullWt = dialog->box(1037);
    QCheckBox* fillIn = dialog->box(1124);
    // Checked again, PullWt shows FillIn as stored, not as it stood on the screen.
    QTest::mouseClick(fillIn, Qt::LeftButton);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    EXPECT_FALSE(fillIn->isVisible());
    QTest::mouseClick(pullWt, Qt::LeftButton);
    EXPECT_TRUE(fillIn->isVisible());
    EXPECT_TRUE(fillIn->isChecked());
    setNumber(Settings::kFillIn, 0);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    EXPECT_FALSE(fillIn->isChecked());

    // Unchecked, PullWt hides FillIn, and OK writes FillIn as it last stood.
    QTest::mouseClick(fillIn, Qt::LeftButton);
    QTest::mouseClick(pullWt, Qt::LeftButton);
    dialog->findChild<QPushButton*>(QStringLiteral("c1"))->click();
    EXPECT_EQ(storedSix(), QStringLiteral("PullWt=0/4 CkDate=0/4 FillIn=1/4 ShowBox=0/4 PullLast=0/4 AsOne=0/4"));
}

TEST_F(OptionsDialogTest, TheBoxesStandTopToBottomWithoutOverlapInTahomaOfHeightEleven) {
    storeSix(1, 0, 1, 0, 0, 0);
    auto dialog = reopen();
    int previousBottom = -1;
    for (int id : kTopToBottom) {
        QCheckBox* box = dialog->box(id);
        const QRect where(box->mapTo(dialog.get(), QPoint(0, 0)), box->size());
        EXPECT_GT(where.top(), previousBottom) << id;
        EXPECT_GE(where.height(),
                  QFontMetrics(box->font())
                      .boundingRect(QRect(0, 0, where.width() - 20, 1000), Qt::TextWordWrap, box->text())
                      .height())
            << id << " cuts its text";
        EXPECT_EQ(box->font().family(), DeviceFonts::family()) << id;
        EXPECT_LE(QFontMetrics(box->font()).height(), 11) << id;
        EXPECT_GE(QFontMetrics(box->font()).height(), 10) << id;
        previousBottom = where.bottom();
    }
    const QRect ok = dialog->findChild<QPushButton*>(QStringLiteral("c1"))->geometry();
    const QRect cancel = dialog->findChild<QPushButton*>(QStringLiteral("c2"))->geometry();
    EXPECT_GT(ok.top(), previousBottom);
    EXPECT_GT(ok.left(), 120);
    EXPECT_LT(cancel.right(), 120);
    EXPECT_EQ(ok.bottom(), cancel.bottom());
    EXPECT_EQ(dialog->box(1037)->text(),
              QStringLiteral("When I change the first strength exercise, pull in all the sets "
                             "I used the last time I did that exercise first."));
}
