#pragma once
// The style of the set-entry grid's combos: the application's style with a drop-down button 9
// pixels wide, as narrow as the device drew it, so that a 26-pixel column still shows "20".

#include <QProxyStyle>

class CompactComboStyle : public QProxyStyle {
    Q_OBJECT
public:
    static constexpr int kArrowWidth = 9;

    explicit CompactComboStyle(QObject* parent);

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl subControl,
                         const QWidget* widget) const override;
};
