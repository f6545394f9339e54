// The device controls driven as a person drives them: taps on a field, keys typed, Enter, Escape,
// the up-down's arrows, the calendar's pick.

#include "CalendarPopup.h"
#include "DateControl.h"
#include "NotesEdit.h"
#include "NumberEdit.h"
#include "RatingCombo.h"
#include "ShellTestSupport.h"
#include "TimeControl.h"
#include "UpDownControl.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace {
// A window of the device's size holding the control under test and a second control to leave to.
class ControlTest : public ::testing::Test {
protected:
    ControlTest() {
        m_window.setGeometry(0, 0, 240, 320);
        m_other.setParent(&m_window);
        m_other.setGeometry(0, 200, 100, 20);
    }
    template <typename T> T* place(T* control, int width = 100) {
        control->setParent(&m_window);
        control->setGeometry(20, 40, width, 20);
        control->show();
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        return control;
    }
    // Taps the control at character position `at` of its text.
    static void tapAt(QLineEdit* edit, int at) {
        // The text starts after the frame and the edit's margin.
        const int x = 4 + edit->fontMetrics().horizontalAdvance(edit->text().left(at)) + 2;
        QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(x, edit->height() / 2));
    }
    void leave() {
        m_other.setFocus();
        QApplication::processEvents();
    }

    QWidget m_window;
    QLineEdit m_other;
    ScriptedMessageBoxes m_boxes;
};

const QDate kShown(2024, 3, 5);

class DateControlTest : public ControlTest {
protected:
    DateControlTest() : m_date(place(new DateControl(nullptr), 110)), m_changes(m_date, &DateControl::dateChanged) {
        m_date->setDate(kShown);
    }
    // Taps the month and types keys; returns the changes seen before Enter.
    qsizetype type(const QString& keys) {
        tapAt(m_date, 0);
        QTest::keyClicks(m_date, keys);
        return m_changes.count();
    }
    void enter() { QTest::keyClick(m_date, Qt::Key_Return); }

    DateControl* m_date;
    QSignalSpy m_changes;
};
} // namespace

TEST_F(DateControlTest, ATypedDateTakesEffectOnceWhenCompleteAndARefusedOneLeavesTheShownDate) {
    const struct {
        const char* keys;
        QDate expected;
        const char* message; // nullptr: accepted
    } cases[] = {
        {"4/6/2024", QDate(2024, 4, 6)},
        {"3/15/2024", QDate(2024, 3, 15)},
        {"462025", QDate(2025, 4, 6)},
        {"12/25/2024", QDate(2024, 12, 25)},
        {"1/5/29", QDate(2029, 1, 5)},
        {"1/5/30", QDate(1930, 1, 5)},
        {"2/29/2024", QDate(2024, 2, 29)},
        {"1/1/1601", QDate(1601, 1, 1)},
        {"12/31/9999", QDate(9999, 12, 31)},
        {"2/29/2023", kShown, "Please enter an integer between 1 and 28."},
        {"4/31/2024", kShown, "Please enter an integer between 1 and 30."},
        {"1/1/1600", kShown, "Please enter an integer between 1601 and 9999."},
        {"1/1/202", kShown, "Please enter an integer between 1601 and 9999."},
    };
    for (const auto& typed : cases) {
        const bool accepted = typed.message == nullptr;
        m_date->setDate(kShown);
        m_changes.clear();
        m_boxes.clear();
        EXPECT_EQ(type(QString::fromLatin1(typed.keys)), 0) << typed.keys << ": nothing before Enter";
        enter();
        EXPECT_EQ(m_boxes.texts(), accepted ? QStringList() : QStringList{QString::fromLatin1(typed.message)})
            << typed.keys;
        ASSERT_EQ(m_changes.count(), accepted ? 1 : 0) << typed.keys;
        if (accepted) {
            EXPECT_EQ(m_changes.at(0).at(0).toDate(), typed.expected) << typed.keys;
        } else {
            EXPECT_EQ(m_date->text(), "3/5/2024") << typed.keys;
        }
        EXPECT_EQ(m_date->date(), typed.expected) << typed.keys;
    }

    // Leaving the control finishes the date as Enter does; the same date again changes nothing.
    m_changes.clear();
    type("7/4/2024");
    leave();
    EXPECT_EQ(m_changes.count(), 1);
    EXPECT_EQ(m_date->text(), "7/4/2024");
    type("7/4/2024");
    enter();
    EXPECT_EQ(m_changes.count(), 1);
}

TEST_F(DateControlTest, ATapSelectsTheFieldUnderTheStylusDigitsReplaceItAndEscapeUndoes) {
    type("4");
    QTest::keyClick(m_date, Qt::Key_Escape);
    EXPECT_EQ(m_date->text(), "3/5/2024");
    enter();
    EXPECT_EQ(m_changes.count(), 0);

    tapAt(m_date, 2); // the day
    QTest::keyClicks(m_date, "9");
    enter();
    EXPECT_EQ(m_date->date(), QDate(2024, 3, 9));
    tapAt(m_date, 6); // the year
    QTest::keyClick(m_date, Qt::Key_Up);
    QTest::keyClick(m_date, Qt::Key_Tab);
    EXPECT_EQ(m_date->date(), QDate(2025, 3, 9));
    // The wheel passing over the control changes nothing.
    QWheelEvent wheel(QPointF(5, 5), m_date->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_date, &wheel);
    EXPECT_EQ(m_date->date(), QDate(2025, 3, 9));
}

// Where the calendar drops down, and its border, show in the date-calendar picture.
TEST_F(DateControlTest, TheCalendarDropsDownOnTheShownDateAndAPickTakesEffect) {
    m_date->showCalendar();
    CalendarPopup* popup = m_date->calendarPopup();
    ASSERT_TRUE(popup->isVisible());
    EXPECT_EQ(popup->calendar()->selectedDate(), kShown);
    emit popup->calendar()->clicked(QDate(2024, 3, 20));
    EXPECT_FALSE(popup->isVisible());
    ASSERT_EQ(m_changes.count(), 1);
    EXPECT_EQ(m_date->date(), QDate(2024, 3, 20));
}

TEST_F(ControlTest, TimeControlsTakeTypedFieldsInBothPictures) {
    auto* time = place(new TimeControl(TimeControl::Picture::TimeOfDay, nullptr), 70);
    QSignalSpy changes(time, &TimeControl::timeChanged);
    // How each picture reads shows in the time-typing and aerobic pictures.
    const struct {
        int at; // where the stylus taps
        const char* keys;
        QTime expected;
    } cases[] = {
        {0, "7", QTime(7, 41)}, {0, "11", QTime(11, 41)}, {0, "12:05a", QTime(0, 5)},
        {2, "05", QTime(9, 5)}, {5, "p", QTime(21, 41)},  {0, "12p", QTime(12, 41)},
    };
    for (const auto& typed : cases) {
        time->setTime(QTime(9, 41));
        changes.clear();
        tapAt(time, typed.at);
        QTest::keyClicks(time, QString::fromLatin1(typed.keys));
        EXPECT_EQ(changes.count(), 0);
        QTest::keyClick(time, Qt::Key_Return);
        EXPECT_EQ(time->time(), typed.expected) << typed.keys;
        EXPECT_EQ(changes.count(), 1) << typed.keys;
    }

    auto* span = place(new TimeControl(TimeControl::Picture::Span, nullptr), 70);
    span->setTime(QTime(0, 0));
    tapAt(span, 0);
    QTest::keyClicks(span, "01:30:20");
    QTest::keyClick(span, Qt::Key_Return);
    EXPECT_EQ(span->time(), QTime(1, 30, 20));
    leave();
    EXPECT_EQ(span->time(), QTime(1, 30, 20));
    EXPECT_EQ(span->cursorPosition(), 0) << "a control left shows the start of its text";
}

TEST_F(ControlTest, NumbersOutOfRangeOrNotNumbersAreRefusedWithThePlatformsMessages) {
    auto* weight = place(new NumberEdit(RangeCheck::Kind::Number, 0, 999, nullptr), 40);
    auto* rate = place(new NumberEdit(RangeCheck::Kind::Integer, 0, 250, nullptr), 40);
    auto* fat = place(new NumberEdit(RangeCheck::Kind::Number, 0, 102.4, nullptr), 40);
    const struct {
        NumberEdit* edit;
        const char* typed;
        const char* message; // nullptr: accepted
        double value;
    } cases[] = {
        {weight, "-5", "Please enter a number between 0 and 999.", 0},
        {weight, "999.01", "Please enter a number between 0 and 999.", 0},
        {weight, "1e3", "Please enter a number.", 0},
        {weight, "999", nullptr, 999},
        {weight, " 157.5 ", nullptr, 157.5},
        {weight, "", nullptr, 0},
        {rate, "12.5", "Please enter an integer.", 0},
        {rate, "251", "Please enter an integer between 0 and 250.", 0},
        {rate, "250", nullptr, 250},
        {fat, "102.41", "Please enter a number between 0 and 102.4.", 0},
        {fat, "102.4", nullptr, 102.4},
    };
    for (const auto& c : cases) {
        c.edit->setValue(7);
        QSignalSpy changes(c.edit, &NumberEdit::valueChanged);
        m_boxes.clear();
        c.edit->setFocus();
        c.edit->selectAll();
        QTest::keyClicks(c.edit, QString::fromLatin1(c.typed));
        if (*c.typed == 0) {
            QTest::keyClick(c.edit, Qt::Key_Backspace);
        }
        if (c.edit->text().isEmpty()) {
            EXPECT_TRUE(m_boxes.texts().isEmpty()) << "no message while the field is being retyped";
        }
        leave();
        if (c.message != nullptr) {
            EXPECT_EQ(m_boxes.texts(), QStringList{QString::fromLatin1(c.message)}) << c.typed;
            EXPECT_EQ(c.edit->value(), 7) << c.typed;
            EXPECT_EQ(c.edit->text(), "7");
            EXPECT_TRUE(c.edit->hasFocus()) << "the field is put right before the person moves on";
            EXPECT_EQ(changes.count(), 0);
        } else {
            EXPECT_TRUE(m_boxes.texts().isEmpty()) << c.typed;
            EXPECT_EQ(c.edit->value(), c.value) << c.typed;
            EXPECT_EQ(changes.count(), 1);
        }
    }
}

// Steps of tenths and the stops at the ends are the pages' spins.
TEST_F(ControlTest, AnUpDownPressedOverATypedValueOutOfRangeRefusesItAndStepsNothing) {
    auto* fat = place(new NumberEdit(RangeCheck::Kind::Number, 0, 102.4, nullptr), 40);
    auto* upDown = new UpDownControl(fat, 0, 999, &m_window, 10);
    upDown->setGeometry(60, 40, 10, 20);
    fat->setValue(22.5);
    fat->setFocus();
    fat->selectAll();
    QTest::keyClicks(fat, "500");
    QTest::mouseClick(upDown->upButton(), Qt::LeftButton);
    EXPECT_EQ(m_boxes.texts(), QStringList{"Please enter a number between 0 and 102.4."});
    EXPECT_EQ(fat->value(), 22.5);
}

TEST_F(ControlTest, RatingsHaveNoChoiceAndNotesLoseThePlaceholderOnFocusAndKeepToTheNoteLimit) {
    // The ratings 0 to 10: the aerobic intensity picture, and the aerobic page's hidden boxes keeping a 10.
    auto* rating = place(new RatingCombo(nullptr), 40);
    for (int outside : {-1, 11, 0xFFFF}) {
        rating->setRating(outside);
        EXPECT_EQ(rating->rating(), RatingCombo::kNoChoice) << outside;
    }

    auto* notes = place(new NotesEdit(nullptr), 200);
    QSignalSpy left(notes, &NotesEdit::left);
    notes->setNotes(QStringLiteral("<Click to add Notes>"));
    notes->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(notes->notes(), "");
    QTest::keyClicks(notes, "Felt strong");
    leave();
    EXPECT_EQ(left.count(), 1);
    notes->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(notes->notes(), "Felt strong") << "a person's notes stay on focus";

    // A note stored longer than a note may be is shown by its first 10000 characters, and typing
    // stops there.
    const QString longest = QString(10000, u'a');
    notes->setNotes(longest + u'b');
    EXPECT_EQ(notes->notes(), longest);
    notes->setFocus();
    notes->moveCursor(QTextCursor::End);
    QTest::keyClicks(notes, "c");
    EXPECT_EQ(notes->notes(), longest);
}
