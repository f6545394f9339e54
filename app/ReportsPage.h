#pragma once
// The reports page (dialog 138, tab 5): charts one chosen measure over a period.

#include "Page.h"

class ReportsPage : public Page {
public:
    ReportsPage(PageHost& host, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};
