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
// Texts stand to the right of the 48-pixel pictures.
constexpr int kTextLeft = 56;
constexpr int kLineHeight = 13;
const QColor kHeadingColour(0x0A, 0x2A, 0x84);
const QColor kRuleColour(0xC0, 0xC0, 0xC0);

enum Picture { kTodayPicture, kWorkoutPicture, kFoodPicture, kGoalsPicture };
} // namespace

TodayPage::TodayPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_TODAY, QStringLiteral("TodayPage"), parent), m_textFont(DeviceFonts::tahoma(kLineHeight)),
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

// One line of text under a heading, shortened with "..." when it does not fit.
void TodayPage::drawLine(QPainter& painter, int top, int right, const QString& text) const {
    painter.setFont(m_textFont);
    painter.setPen(Qt::black);
    const int width = right - kTextLeft;
    painter.drawText(QRect(kTextLeft, top, width, kLineHeight), Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(m_textFont).elidedText(text, Qt::ElideRight, width));
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

QStringList TodayPage::goalsLines(const QString& goals, const QFont& font, int width, int lines) {
    // Every line the text breaks into at width, its own line breaks kept.
    const QString text = QString(goals).remove(u'\r').trimmed();
    if (text.isEmpty()) {
        return {};
    }
    QStringList all;
    for (const QString& paragraph : text.split(u'\n')) {
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
    painter.setPen(kRuleColour);
    painter.drawLine(4, top.bottom(), kWidth - 5, top.bottom());

    const QRect workout = TodayTaps::workoutBox();
    drawPicture(painter, kWorkoutPicture, workout);
    drawHeading(painter, workout.top() + 2, QStringLiteral("Today's workout:"));
    drawLine(painter, workout.top() + 2 + kLineHeight + 3, workout.right(), m_workoutText);

    const QRect meal = TodayTaps::mealBox();
    painter.setPen(kRuleColour);
    painter.drawLine(4, (workout.bottom() + meal.top()) / 2, kWidth - 5, (workout.bottom() + meal.top()) / 2);
    drawPicture(painter, kFoodPicture, meal);
    drawHeading(painter, meal.top() + 1, QStringLiteral("My next meal:"));
    drawLine(painter, meal.top() + 1 + kLineHeight + 3, meal.right(), m_nextMealText);

    const QRect goals = TodayTaps::goalsBox();
    painter.setPen(kRuleColour);
    painter.drawLine(4, (meal.bottom() + goals.top()) / 2, kWidth - 5, (meal.bottom() + goals.top()) / 2);
    drawPicture(painter, kGoalsPicture, goals);
    drawHeading(painter, goals.top() + 1, QStringLiteral("My goals:"));
    const QFont& font = m_textFont;
    const int textTop = goals.top() + 1 + kLineHeight + 3;
    const int width = goals.right() - kTextLeft;
    const QStringList lines = goalsLines(GoalsFile::read(), font, width, (goals.bottom() + 1 - textTop) / kLineHeight);
    painter.setFont(font);
    painter.setPen(Qt::black);
    for (int i = 0; i < lines.size(); ++i) {
        painter.drawText(QRect(kTextLeft, textTop + i * kLineHeight, width, kLineHeight),
                         Qt::AlignLeft | Qt::AlignVCenter, lines[i]);
    }
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
