#include "WrappingCheckBox.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {
constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
} // namespace

WrappingCheckBox::WrappingCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int WrappingCheckBox::textLeft() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    return style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this) +
           style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, &option, this);
}

QRect WrappingCheckBox::textBounds(int width) const {
    return fontMetrics().boundingRect(QRect(textLeft(), 0, std::max(1, width - textLeft()), 10000), kTextFlags, text());
}

int WrappingCheckBox::heightForWidth(int width) const {
    QStyleOptionButton option;
    initStyleOption(&option);
    const int indicator = style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this);
    return std::max(indicator, textBounds(width).height());
}

QSize WrappingCheckBox::sizeHint() const {
    const int width = std::max(this->width(), 120);
    return {width, heightForWidth(width)};
}

void WrappingCheckBox::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const int indicatorWidth = style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, this);
    const int indicatorHeight = style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, this);
    // The box sits beside the first line of text.
    QStyleOptionButton box = option;
    box.rect = QRect(0, std::max(0, (fontMetrics().height() - indicatorHeight) / 2), indicatorWidth, indicatorHeight);
    painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, box);

    const QRect text = textBounds(width());
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    painter.drawText(QRect(textLeft(), 0, width() - textLeft(), height()), kTextFlags, this->text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = text.adjusted(-1, 0, 1, 0);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
