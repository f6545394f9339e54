#include "TodayPage.h"

#include "Bitmaps.h"
#include "Clock.h"
#include "DeviceFonts.h"
#include "GoalsFile.h"
#include "PageHost.h"
#include "StartupNotices.h"
#include "TodaySummary.h"
#include "TodayTaps.h"
#include "UpperBodyConversion.h"
#include "resource.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QTextLayout>

namespace {
// Texts stand to the right of the 48-pixel pictures and may use the page's width. Headings take 13
// pixels a line, the texts under them 12, so that the workout text has three lines before the meal
// box, the meal text two before the goals box, and the goals six down to the tab row.
constexpr int kTextLeft = 56;
constexpr int kTextRight = Page::kWidth - 4;
constexpr int kLineHeight = 13;
constexpr int kTextLineHeight = 12;
constexpr int kTabRowTop = 247;
const QColor kHeadingColour(0x0A, 0x2A, 0x84);
const QColor kRuleColour(0xC0, 0xC0, 0xC0);

enum Picture { kTodayPicture, kWorkoutPicture, kFoodPicture, kGoalsPicture };
} // namespace

TodayPage::TodayPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_TODAY, QStringLiteral("TodayPage"), parent), m_textFont(DeviceFonts::tahoma(kTextLineHeight)),
      m_headingFont(DeviceFonts::tahoma(kLineHeight, true)), m_dateFont(DeviceFonts::tahoma(15, true)) {
    const int ids[] = {IDB_TODAY_TODAY, IDB_TODAY_WORKOUT, IDB_MEAL, IDB_TODAY_GOALS};
    for (int i = 0; i < 4; ++i) {
        m_pictures[i] = Bitmaps::toPixmap(Bitmaps::load(ids[i]));
    }
}

void TodayPage::drawPicture(QPainter& painter, int index, const QRect& box) const {
    const QPixmap& picture = m_pictures[index];
    const QSize size = picture.deviceIndependentSize().toSize();
    painter.drawPixmap(QRect(QPoint(4, box.center().y() - size.height() / 2 + 1), size), picture);
}

void TodayPage::drawHeading(QPainter& painter, int top, const QString& text) const {
    painter.setFont(m_headingFont);
    painter.setPen(kHeadingColour);
    painter.drawText(QRect(kTextLeft, top, kWidth - kTextLeft - 4, kLineHeight), Qt::AlignLeft | Qt::AlignVCenter,
                     text);
}

void TodayPage::drawText(QPainter& painter, int top, int bottom, const QString& text) const {
    const int width = kTextRight - kTextLeft;
    const QStringList lines = wrappedLines(text, m_textFont, width, (bottom - top) / kTextLineHeight);
    painter.setFont(m_textFont);
    painter.setPen(Qt::black);
    for (int i = 0; i < lines.size(); ++i) {
        painter.drawText(QRect(kTextLeft, top + i * kTextLineHeight, width, kTextLineHeight),
                         Qt::AlignLeft | Qt::AlignVCenter, lines[i]);
    }
}

void TodayPage::drawRule(QPainter& painter, int y) const {
    painter.setPen(kRuleColour);
    painter.drawLine(4, y, kWidth - 5, y);
}

void TodayPage::initDialog() {
    StartupNotices::show(host(), this);
    // Independently of the notices, before the page is first used.
    UpperBodyConversion::runOnce(this);
}

void TodayPage::recompute() {
    const QDateTime now = Clock::now();
    m_workoutText =
        TodaySummary::workoutText(host().aerobicDatabaseName(), host().upperBodyADatabaseName(), now.date());
    m_nextMealText = TodaySummary::nextMealText(host().foodDatabaseName(), now);
}

QStringList TodayPage::wrappedLines(const QString& text, const QFont& font, int width, int lines) {
    // Every line the text breaks into at width, its own line breaks kept.
    const QString trimmed = QString(text).remove(u'\r').trimmed();
    if (trimmed.isEmpty()) {
        return {};
    }
    QStringList all;
    for (const QString& paragraph : trimmed.split(u'\n')) {
        QTextLayout layout(paragraph.trimmed(), font);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            all << layout.text().mid(line.textStart(), line.textLength()).trimmed();
        }
        layout.endLayout();
    }
    if (all.size() <= lines) {
        return all;
    }
    QStringList shown = all.mid(0, std::max(0, lines));
    if (!shown.isEmpty()) {
        const QFontMetrics metrics(font);
        QString last = shown.back();
        while (!last.isEmpty() && metrics.horizontalAdvance(last + QStringLiteral("...")) > width) {
            last.chop(1);
        }
        // "summer." cut becomes "summer...", not "summer....".
        while (!last.isEmpty() && (last.back().isSpace() || last.back() == u'.' || last.back() == u',')) {
            last.chop(1);
        }
        shown.back() = last + QStringLiteral("...");
    }
    return shown;
}

void TodayPage::paintEvent(QPaintEvent*) {
    recompute();
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);

    // The user's line: today's picture, the date and "User: " with the display name.
    const QRect top(0, 0, kWidth, TodayTaps::workoutBox().top() - 4);
    drawPicture(painter, kTodayPicture, top);
    painter.setFont(m_dateFont);
    painter.setPen(kHeadingColour);
    painter.drawText(QRect(kTextLeft, 6, kWidth - kTextLeft - 4, 16), Qt::AlignLeft | Qt::AlignVCenter,
                     Clock::now().date().toString(QStringLiteral("dddd, MMMM d")));
    painter.setFont(m_textFont);
    painter.setPen(Qt::black);
    painter.drawText(QRect(kTextLeft, 24, kWidth - kTextLeft - 4, kLineHeight), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("User: ") + host().GetUserName());
    drawRule(painter, top.bottom());

    // Each box's heading stands at the top of its tap box; its text runs on down to the rule above the
    // next box (the goals down to the tab row).
    const QRect workout = TodayTaps::workoutBox();
    const QRect meal = TodayTaps::mealBox();
    const QRect goals = TodayTaps::goalsBox();
    const int workoutEnd = meal.top() - 3;
    const int mealEnd = goals.top() - 2;
    drawPicture(painter, kWorkoutPicture, QRect(workout.topLeft(), QPoint(workout.right(), workoutEnd)));
    drawHeading(painter, workout.top(), QStringLiteral("Today's workout:"));
    drawText(painter, workout.top() + kLineHeight - 1, workoutEnd, m_workoutText);
    drawRule(painter, workoutEnd);

    drawPicture(painter, kFoodPicture, QRect(meal.topLeft(), QPoint(meal.right(), mealEnd)));
    drawHeading(painter, meal.top(), QStringLiteral("My next meal:"));
    drawText(painter, meal.top() + kLineHeight - 1, mealEnd, m_nextMealText);
    drawRule(painter, mealEnd);

    drawPicture(painter, kGoalsPicture, goals);
    drawHeading(painter, goals.top() + 1, QStringLiteral("My goals:"));
    drawText(painter, goals.top() + kLineHeight, kTabRowTop - 1, GoalsFile::read());
}

void TodayPage::mousePressEvent(QMouseEvent* event) {
    // The tap is judged against the text as it stands now, not as it was last drawn.
    recompute();
    const TodayTaps::Target target = TodayTaps::at(event->position().toPoint(), m_workoutText);
    if (target == TodayTaps::Target::Goals) {
        host().showGoals();
    } else if (const int tab = TodayTaps::tabOf(target); tab > 0) {
        host().SelectPage(tab);
    }
    Page::mousePressEvent(event);
}
