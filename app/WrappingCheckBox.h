#pragma once
// A check box whose text wraps onto as many lines as its width needs (a multi-line check box).
// A tap anywhere on it, text included, toggles it.

#include <QCheckBox>

class WrappingCheckBox : public QCheckBox {
    Q_OBJECT
public:
    WrappingCheckBox(const QString& text, QWidget* parent);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& pos) const override { return rect().contains(pos); }

private:
    int textLeft() const;
    QRect textBounds(int width) const;
};
