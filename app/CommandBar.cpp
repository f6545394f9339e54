#include "CommandBar.h"

#include "MenuResource.h"
#include "StringTable.h"
#include "ToolBarResource.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace {
constexpr int kButtonWidth = 24;
constexpr int kButtonHeight = 24;

QString actionName(int command) {
    return QStringLiteral("cmd%1").arg(command);
}

QWidget* spacer(QWidget* parent, int width) {
    auto* gap = new QWidget(parent);
    gap->setFixedSize(width, 1);
    return gap;
}
} // namespace

CommandBar::CommandBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("CommandBar"));
    setFixedHeight(kHeight);
    m_layout = new QHBoxLayout(this);
    m_layout->setContentsMargins(0, 1, 0, 1);
    m_layout->setSpacing(0);
    m_layout->addStretch(1);
}

void CommandBar::clear() {
    removeItems();
    m_menu = nullptr;
    m_menuButton = nullptr;
    m_commands.clear();
    m_addedMenus.clear();
}

void CommandBar::removeItems() {
    for (QWidget* item : m_items) {
        // Unparented at once, so that nothing finds a removed command while it waits for deletion.
        item->hide();
        m_layout->removeWidget(item);
        item->setParent(nullptr);
        item->deleteLater();
    }
    m_items.clear();
}

QToolButton* CommandBar::makeMenuButton(int menuId, QMenu*& menu) {
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("menubar%1").arg(menuId));
    button->setText(MenuResource::title(menuId));
    button->setAutoRaise(true);
    button->setFixedHeight(kButtonHeight);
    button->setMinimumWidth(40);
    menu = new QMenu(button);
    for (const MenuItem& item : MenuResource::items(menuId)) {
        QAction* action = menu->addAction(item.text);
        action->setObjectName(actionName(item.command));
        const int command = item.command;
        connect(action, &QAction::triggered, this, [this, command] { emit commandChosen(command); });
    }
    connect(button, &QToolButton::clicked, this, [this, menu] { openMenu(menu); });
    return button;
}

void CommandBar::addMenu(int menuId) {
    QMenu* menu = nullptr;
    QToolButton* button = makeMenuButton(menuId, menu);
    m_layout->insertWidget(m_layout->count() - 1, button);
    QWidget* gap = spacer(this, kGap);
    m_layout->insertWidget(m_layout->count() - 1, gap);
    m_items.insert(m_items.end(), {button, gap});
    m_addedMenus.emplace_back(menuId, menu);
    button->show();
    gap->show();
}

QMenu* CommandBar::addedMenu(int menuId) const {
    for (const auto& [id, menu] : m_addedMenus) {
        if (id == menuId) {
            return menu;
        }
    }
    return nullptr;
}

void CommandBar::insertMenuBar(int menuId) {
    m_menuButton = makeMenuButton(menuId, m_menu);
    // The menu comes first, before any tool-bar button already there.
    m_layout->insertWidget(0, m_menuButton);
    QWidget* gap = spacer(this, kGap);
    m_layout->insertWidget(1, gap);
    m_items.insert(m_items.begin(), {m_menuButton, gap});
    m_menuButton->show();
    gap->show();
}

bool CommandBar::addToolBar(int toolBarId) {
    const auto toolBar = ToolBarResource::load(toolBarId);
    if (!toolBar) {
        return false;
    }
    int image = 0;
    for (int command : toolBar->commands()) {
        QWidget* item = nullptr;
        if (command == 0) {
            item = spacer(this, kGap);
        } else {
            auto* button = new QToolButton(this);
            auto* action = new QAction(QIcon(toolBar->buttonImage(image++)), StringTable::load(command), button);
            action->setObjectName(actionName(command));
            connect(action, &QAction::triggered, this, [this, command] { emit commandChosen(command); });
            button->setDefaultAction(action);
            button->setAutoRaise(true);
            button->setIconSize(QSize(toolBar->buttonWidth(), toolBar->buttonHeight()));
            button->setFixedSize(kButtonWidth, kButtonHeight);
            item = button;
        }
        m_layout->insertWidget(m_layout->count() - 1, item);
        item->show();
        m_items.push_back(item);
        m_commands.push_back(command);
    }
    return true;
}

void CommandBar::openMenu() {
    openMenu(m_menu);
}

void CommandBar::openMenu(QMenu* menu) {
    if (menu == nullptr) {
        return;
    }
    // Each pop-up belongs to its button.
    auto* button = qobject_cast<QWidget*>(menu->parent());
    const QPoint topLeft = button->mapToGlobal(QPoint(0, 0));
    menu->popup(topLeft - QPoint(0, menu->sizeHint().height()));
}
