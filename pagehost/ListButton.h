#pragma once
// The "<-" button beside an editable drop-down: opens the item list editor on the drop-down's list.

#include <QPushButton>

class ListButton : public QPushButton {
    Q_OBJECT
public:
    explicit ListButton(QWidget* parent);
};
