#pragma once
// The "!" button beside a time control: sets the time to now.

#include <QToolButton>

class NowButton : public QToolButton {
    Q_OBJECT
public:
    explicit NowButton(QWidget* parent);
};
