#pragma once
// A page of the main window: a modeless child dialog of 240 x 260 pixels, created once at start-up
// and afterwards only shown and hidden. The main window drives a page through these hooks; a page
// reaches the rest of the program only through its PageHost.

#include "WorkoutTimes.h"

#include <QDate>
#include <QString>
#include <QWidget>

class PageHost;

class Page : public QWidget {
public:
    static constexpr int kWidth = 240;
    static constexpr int kHeight = 260;

    // className becomes the objectName: tests and tools find pages by it.
    Page(PageHost& host, int dialogId, const QString& className, QWidget* parent)
        : QWidget(parent), m_host(host), m_dialogId(dialogId) {
        setObjectName(className);
    }

    int dialogId() const { return m_dialogId; }

    // Dialog initialisation: runs once, right after the main window created the page. A page
    // creates its missing databases and loads today's records here.
    virtual void initDialog() {}
    // Moves the page to date and reloads it.
    virtual void setDate(const QDate& date) { Q_UNUSED(date); }
    // Reloads the shown date from the current user's databases.
    virtual void reload() {}
    // Saves the record being edited: called when the page is left while it is visible.
    virtual void saveCurrent() {}
    // A tool-bar command the main window forwards; false when the page does not know it.
    virtual bool handleCommand(int command) {
        Q_UNUSED(command);
        return false;
    }
    // The other strength page's times, when both regions of a day count as one workout.
    virtual void applyTimes(const WorkoutTimes& times) { Q_UNUSED(times); }
    // The set-entry grid: loads groupCode's sets of date before it is shown.
    virtual void openGroup(const QDate& date, int groupCode) {
        Q_UNUSED(date);
        Q_UNUSED(groupCode);
    }

protected:
    PageHost& host() const { return m_host; }

private:
    PageHost& m_host;
    int m_dialogId;
};
