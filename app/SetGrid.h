#pragma once
// The set-entry grid (dialog 143): the twelve sets of one muscle group of one day, laid over the
// strength pages while they are edited.

#include "Page.h"

class SetGrid : public Page {
public:
    SetGrid(PageHost& host, QWidget* parent);

    void openGroup(const QDate& date, int groupCode) override;
    QDate date() const { return m_date; }
    int groupCode() const { return m_groupCode; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QDate m_date;
    int m_groupCode = 0;
};
