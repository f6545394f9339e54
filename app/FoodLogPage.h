#pragma once
// The food log page (dialog 137, tab 4): one day's food and body record and its meals.

#include "Page.h"

class FoodLogPage : public Page {
public:
    FoodLogPage(PageHost& host, QWidget* parent);

    void setDate(const QDate& date) override { m_date = date; }
    // "Add Meal" from the food tool bar.
    bool handleCommand(int command) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QDate m_date;
};
