#pragma once
// The aerobic log page (dialog 136, tab 3): up to three aerobic exercises a day. The one page the
// main window saves when it is left.

#include "Page.h"

class AerobicLogPage : public Page {
public:
    AerobicLogPage(PageHost& host, QWidget* parent);

    void setDate(const QDate& date) override { m_date = date; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QDate m_date;
};
