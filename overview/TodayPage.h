#pragma once
// The Today page (dialog 133, tab 0): the first page shown. Under the user's name it sums up the
// current user's day in three boxes, today's workout, the next meal still to come and the goals, and
// a tap on a box opens the page that edits it. The texts are read from the logs at every drawing, so
// the Today tool-bar button (32832) and the main window's RepaintToday refresh them by repainting.
// Its initialisation shows the start-up notices and converts the upper-body log of an earlier
// release once.

#include "Page.h"

#include <QFont>
#include <QPixmap>

class QPainter;

class TodayPage : public Page {
public:
    TodayPage(PageHost& host, QWidget* parent);

    void initDialog() override;
    // The texts follow the current user: a reload is a repaint.
    void reload() override { update(); }

    // The texts as the page last drew them.
    QString workoutText() const { return m_workoutText; }
    QString nextMealText() const { return m_nextMealText; }

    // A text as it fits a box: whole words on as many lines as the box holds, its own line breaks
    // kept, the last line ending in "..." when text is left over. One string per line.
    static QStringList wrappedLines(const QString& text, const QFont& font, int width, int lines);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void recompute();
    void drawPicture(QPainter& painter, int index, const QRect& box) const;
    void drawHeading(QPainter& painter, int top, const QString& text) const;
    // Draws text wrapped into the lines from top down to bottom.
    void drawText(QPainter& painter, int top, int bottom, const QString& text) const;
    void drawRule(QPainter& painter, int y) const;

    // Made once: a font described by a height is measured each time it is made, and a bitmap is
    // decoded; a paint would otherwise spend most of its time on both.
    QFont m_textFont;
    QFont m_headingFont;
    QFont m_dateFont;
    QPixmap m_pictures[4];
    QString m_workoutText;
    QString m_nextMealText;
};
