#pragma once
// The command bar at the bottom of the screen: the menu bar's pop-up ("Menu") and the page's
// tool-bar buttons. Every command is a QAction named "cmd<id>"; choosing one emits commandChosen.

#include <QWidget>

#include <utility>
#include <vector>

class QHBoxLayout;
class QMenu;
class QToolButton;

class CommandBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 26;
    // The space left between the menu and the first tool-bar button, and for a separator.
    static constexpr int kGap = 6;

    explicit CommandBar(QWidget* parent);

    // Removes the menu bar and every button.
    void clear();
    // Inserts the pop-up of menu bar menuId as a text button at the left.
    void insertMenuBar(int menuId);
    // Appends the pop-up menuId as a text button after what the bar holds (the set-entry grid's
    // "Clear...").
    void addMenu(int menuId);
    // Appends the buttons of tool bar toolBarId, with their images. False when there is no such
    // tool bar (nothing is added).
    bool addToolBar(int toolBarId);

    // The commands of the tool-bar buttons shown, in order (0 for a separator).
    std::vector<int> buttonCommands() const { return m_commands; }
    // The menu bar's pop-up, or nullptr when none is inserted.
    QMenu* menu() const { return m_menu; }
    // The pop-up menuId appended by addMenu, or nullptr.
    QMenu* addedMenu(int menuId) const;
    // Opens the pop-up above its button, as menus open from the bottom of the screen.
    void openMenu();
    void openMenu(QMenu* menu);

signals:
    void commandChosen(int command);

private:
    void removeItems();
    QToolButton* makeMenuButton(int menuId, QMenu*& menu);

    QHBoxLayout* m_layout = nullptr;
    QToolButton* m_menuButton = nullptr;
    QMenu* m_menu = nullptr;
    std::vector<QWidget*> m_items; // the menu button, the gap, the buttons and separators
    std::vector<int> m_commands;
    std::vector<std::pair<int, QMenu*>> m_addedMenus;
};
