#pragma once
// The menus of the command bar. Menu bar 129 holds one pop-up, "Menu", with the program's commands;
// menu 291 is the set-entry grid's pop-up "Clear...".

#include <QString>

#include <vector>

struct MenuItem {
    int command = 0;
    QString text;
};

class MenuResource {
public:
    // The title of the menu bar's pop-up ("Menu" for 129); empty for an unknown id.
    static QString title(int menuId);
    // The pop-up's items in order; empty for an unknown id.
    static std::vector<MenuItem> items(int menuId);
};
