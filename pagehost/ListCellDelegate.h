#pragma once
// Draws a list's cells as the device's list view does: the text one pixel in from the cell's left
// edge and cut at its right edge, never shortened with "...". The style's own text margins would
// leave a narrow column (the meal list's 36-pixel time column) too little room for "10:00P".

#include <QStyledItemDelegate>

class ListCellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
