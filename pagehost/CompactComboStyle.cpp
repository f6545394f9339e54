#include "CompactComboStyle.h"

#include <QApplication>
#include <QStyleFactory>
#include <QStyleOptionComplex>

CompactComboStyle::CompactComboStyle(QObject* parent)
    : QProxyStyle(QStyleFactory::create(QApplication::style()->name())) {
    setParent(parent);
}

QRect CompactComboStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                        SubControl subControl, const QWidget* widget) const {
    if (control == CC_ComboBox) {
        const QRect frame = option->rect;
        if (subControl == SC_ComboBoxArrow) {
            return QRect(frame.right() - kArrowWidth, frame.top() + 1, kArrowWidth, frame.height() - 2);
        }
        if (subControl == SC_ComboBoxEditField) {
            return QRect(frame.left() + 1, frame.top() + 2, frame.width() - kArrowWidth - 2, frame.height() - 4);
        }
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}
