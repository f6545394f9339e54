#pragma once
// A pop-up menu of a page (a list's tap-and-hold menu): items carry their command ids, named
// "cmd<id>", and the menu opens at the stylus, above or to the left of it when it would otherwise
// run off the device's screen.

#include <QMenu>

class QTreeWidget;

class PageMenu : public QMenu {
public:
    PageMenu(const QString& name, QWidget* parent);

    // What a list's tap-and-hold at position (in the list's viewport) does before its menu opens:
    // a row under the stylus becomes the selected row; a point below the rows leaves none selected.
    // True when a row was hit.
    static bool selectRowAt(QTreeWidget* list, const QPoint& position);

    void addCommand(int command, const QString& text);
    // Opens at position in target's coordinates and returns the command chosen, 0 for none.
    int choose(QWidget* target, const QPoint& position);
};
