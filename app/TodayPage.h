#pragma once
// The Today page (dialog 133, tab 0): the first page shown. Its initialisation shows the start-up
// notices.

#include "Page.h"

class TodayPage : public Page {
public:
    TodayPage(PageHost& host, QWidget* parent);

    void initDialog() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
