#pragma once
// Draws a list's cells with the text one pixel in from the cell's left edge and a gap before the next
// column, shortened with "..." when it does not fit, so that neighbouring columns never run into each
// other. The style's own text margins would leave a narrow column (the meal list's 36-pixel time
// column) too little room for "10:00P".

#include <QStyledItemDelegate>

class ListCellDelegate : public QStyledItemDelegate {
public:
    static constexpr int kTextInset = 1;
    static constexpr int kGap = 2;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // text as a cell of width shows it.
    static QString shownText(const QString& text, const QFont& font, int width);
};
