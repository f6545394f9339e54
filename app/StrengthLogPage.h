#pragma once
// A strength log page: the upper body (dialog 132, tab 1) or the lower body (dialog 135, tab 2),
// one day's workout of the region. Its tool bar's buttons are the region's muscle groups.

#include "Page.h"

class StrengthLogPage : public Page {
public:
    StrengthLogPage(PageHost& host, BodyRegion region, QWidget* parent);

    BodyRegion region() const { return m_region; }
    void setDate(const QDate& date) override { m_date = date; }
    // The region's muscle-group commands from its tool bar.
    bool handleCommand(int command) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    BodyRegion m_region;
    QDate m_date;
};
