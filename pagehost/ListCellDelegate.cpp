#include "ListCellDelegate.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

QString ListCellDelegate::shownText(const QString& text, const QFont& font, int width) {
    return QFontMetrics(font).elidedText(text, Qt::ElideRight, width - kTextInset - kGap);
}

void ListCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QString text = cell.text;
    // The style draws the cell without its text: background, selection and focus.
    cell.text.clear();
    const QWidget* widget = cell.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, widget);

    const QPalette::ColorGroup group = (cell.state & QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QPalette::ColorRole role = (cell.state & QStyle::State_Selected) ? QPalette::HighlightedText : QPalette::Text;
    painter->save();
    painter->setClipRect(cell.rect);
    painter->setFont(cell.font);
    painter->setPen(cell.palette.color(group, role));
    painter->drawText(cell.rect.adjusted(kTextInset, 0, -kGap, 0),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      shownText(text, cell.font, cell.rect.width()));
    painter->restore();
}
