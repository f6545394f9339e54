#pragma once
// What the main window offers its pages: the only path from one page to another. A page asks for a
// database's name each time it opens the database, and reaches other pages only through these.

#include "Confirmation.h"
#include "WorkoutTimes.h"

#include <QDate>
#include <QString>

class QDialog;

class PageHost {
public:
    virtual ~PageHost() = default;

    // The current user's display name: the stored name, or "Default" for the empty name.
    virtual QString GetUserName() const = 0;
    // The current user's six databases.
    virtual QString upperBodyADatabaseName() const = 0;
    virtual QString upperBodyBDatabaseName() const = 0;
    virtual QString lowerBodyADatabaseName() const = 0;
    virtual QString lowerBodyBDatabaseName() const = 0;
    virtual QString aerobicDatabaseName() const = 0;
    virtual QString foodDatabaseName() const = 0;

    // Selects tab index (0 Today, 1 upper body, 2 lower body, 3 aerobic, 4 food, 5 reports,
    // 6 calendar) and switches to its page.
    virtual void SelectPage(int index) = 0;
    // Moves the upper-body, lower-body, aerobic, food and calendar pages to date.
    virtual void SetDateOnAllPages(const QDate& date) = 0;
    // Reloads the four log pages for their dates and repaints the Today page.
    virtual void RefreshLogPages() = 0;
    // Reloads the four log pages from the current user's databases.
    virtual void ReloadForUser() = 0;
    // Makes the Today page redraw from the databases.
    virtual void RepaintToday() = 0;
    // Moves the one page of tab index (1 upper body, 2 lower body, 3 aerobic, 4 food) to date, as
    // the calendar does when the dates of the pages are not kept together.
    virtual void setDateOnPage(int index, const QDate& date) = 0;
    // Opens the goals dialog; the Today page redraws when the goals were changed.
    virtual void showGoals() = 0;
    // Shows the set-entry grid over the strength pages for one muscle group of one day.
    virtual void ShowSetGrid(const QDate& date, int groupCode) = 0;

    // Forwarding between the two strength pages, and from the grid back to its strength page.
    virtual void forwardDateToStrengthPage(BodyRegion region, const QDate& date) = 0;
    virtual void forwardTimesToStrengthPage(BodyRegion region, const WorkoutTimes& times) = 0;
    // The grid is done with groupCode: returns to the group's strength page, reloaded.
    virtual void returnFromSetGrid(int groupCode) = 0;

    // Shows the confirmation dialog over the screen.
    virtual ConfirmResult confirm(const ConfirmRequest& request) = 0;
    // Runs a page's own dialog modally over the client area, as the device shows dialogs; its
    // result (QDialog::Accepted or Rejected).
    virtual int runDialog(QDialog& dialog) = 0;
    // Opens the item list editor on the name-list database databaseName and returns, when it has
    // closed, the last name added during the visit (empty when none).
    virtual QString editItemList(const QString& databaseName) = 0;
};
