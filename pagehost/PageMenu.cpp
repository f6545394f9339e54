#include "PageMenu.h"

#include <QTreeWidget>

PageMenu::PageMenu(const QString& name, QWidget* parent) : QMenu(parent) {
    setObjectName(name);
}

bool PageMenu::selectRowAt(QTreeWidget* list, const QPoint& position) {
    QTreeWidgetItem* item = list->itemAt(position);
    if (item == nullptr) {
        list->clearSelection();
        return false;
    }
    list->setCurrentItem(item);
    return true;
}

void PageMenu::addCommand(int command, const QString& text) {
    QAction* action = addAction(text);
    action->setObjectName(QStringLiteral("cmd%1").arg(command));
    action->setData(command);
}

int PageMenu::choose(QWidget* target, const QPoint& position) {
    const QWidget* device = target->window();
    const QRect screen(device->mapToGlobal(QPoint(0, 0)), device->size());
    QPoint where = target->mapToGlobal(position);
    const QSize size = sizeHint();
    if (where.y() + size.height() > screen.bottom()) {
        where.ry() -= size.height();
    }
    if (where.x() + size.width() > screen.right()) {
        where.rx() -= size.width();
    }
    const QAction* chosen = exec(where);
    return chosen != nullptr ? chosen->data().toInt() : 0;
}
