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

void CommandBar::insertMenuBar(int menuId) {
    m_menuButton = new QToolButton(this);
    m_menuButton->setObjectName(QStringLiteral("menubar%1").arg(menuId));
    m_menuButton->setText(MenuResource::title(menuId));
    m_menuButton->setAutoRaise(true);
    m_menuButton->setFixedHeight(kButtonHeight);
    m_menuButton->setMinimumWidth(40);
    m_menu = new QMenu(m_menuButton);
    for (const MenuItem& item : MenuResource::items(menuId)) {
        QAction* action = m_menu->addAction(item.text);
        action->setObjectName(actionName(item.command));
        const int command = item.command;
        connect(action, &QAction::triggered, this, [this, command] { emit commandChosen(command); });
    }
    connect(m_menuButton, &QToolButton::clicked, this, &CommandBar::openMenu);
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
    if (m_menu == nullptr) {
        return;
    }
    const QPoint topLeft = m_menuButton->mapToGlobal(QPoint(0, 0));
    m_menu->popup(topLeft - QPoint(0, m_menu->sizeHint().height()));
}
