#include "MenuResource.h"

#include "resource.h"

QString MenuResource::title(int menuId) {
    switch (menuId) {
    case IDR_MENUBAR:
        return QStringLiteral("Menu");
    case IDR_SETGRID_MENU:
        return QStringLiteral("Clear...");
    default:
        return {};
    }
}

std::vector<MenuItem> MenuResource::items(int menuId) {
    if (menuId == IDR_SETGRID_MENU) {
        return {
            {ID_CLEAR_ALLROWS, QStringLiteral("All Rows")},
            {ID_CLEAR_CURRENTROW, QStringLiteral("Current Row")},
            {ID_CLEAR_ROWANDBELOW, QStringLiteral("Current Row and all below it")},
        };
    }
    if (menuId != IDR_MENUBAR) {
        return {};
    }
    return {
        {ID_MENU_GOALS, QStringLiteral("Goals")},
        {ID_MENU_ABOUT, QStringLiteral("About")},
        {ID_MENU_PHOTO, QStringLiteral("View Photo")},
        {ID_MENU_OPTIONS, QStringLiteral("Options")},
        {ID_MENU_UTILITIES, QStringLiteral("Utilities")},
        {ID_MENU_SWITCHUSER, QStringLiteral("Switch User")},
        {ID_MENU_MANAGEUSERS, QStringLiteral("Manage Users")},
        {ID_MENU_HELP, QStringLiteral("Help")},
        {ID_MENU_EXIT, QStringLiteral("Exit")},
    };
}
