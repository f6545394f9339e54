#include "StringTable.h"

#include "resource.h"

QString StringTable::load(int id) {
    switch (id) {
    case IDS_RELEASENOTES:
        return QStringLiteral(
            "*Kovalin 2.0 Release Notes:\n"
            "\n"
            "- For best performance, perform a soft reset of your Pocket PC after installing Kovalin.  "
            "Periodically, if the program seems to load slowly, a soft reset can help.\n"
            "\n"
            "- The Kovalin user guide is online at http://www.kovalin.example.org/guide.  For help with "
            "Kovalin, mail support@kovalin.example.org.");
    // The tool-bar buttons' tips: the string with the command's own id.
    case ID_TODAY_REFRESH:
        return QStringLiteral("Refresh");
    case ID_UPPER_CHEST:
        return QStringLiteral("Chest");
    case ID_UPPER_SHOULDERS:
        return QStringLiteral("Shoulders");
    case ID_UPPER_BACK:
        return QStringLiteral("Back");
    case ID_UPPER_TRICEPS:
        return QStringLiteral("Triceps");
    case ID_UPPER_BICEPS:
        return QStringLiteral("Biceps");
    case ID_UPPER_MISC:
        return QStringLiteral("Misc");
    case ID_LOWER_QUADS:
        return QStringLiteral("Quads");
    case ID_LOWER_HAMSTRINGS:
        return QStringLiteral("Hamstrings");
    case ID_LOWER_CALVES:
        return QStringLiteral("Calves");
    case ID_LOWER_ABS:
        return QStringLiteral("Abs");
    case ID_LOWER_MISC1:
        return QStringLiteral("Misc 1");
    case ID_LOWER_MISC2:
        return QStringLiteral("Misc 2");
    case ID_FOOD_ADDMEAL:
        return QStringLiteral("Add Meal");
    case ID_GRID_SAVE:
        return QStringLiteral("Save");
    case ID_GRID_CANCEL:
        return QStringLiteral("Cancel");
    case ID_GRID_SELECTEXERCISE:
        return QStringLiteral("Select an exercise");
    case ID_GRID_EDITLIST:
        return QStringLiteral("Edit the exercise list");
    default:
        return {};
    }
}
