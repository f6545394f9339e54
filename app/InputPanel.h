#pragma once
// The input panel: a small keyboard of 240 x 80 pixels just above the command bar, opened and closed
// with the command bar's input-panel button. A tap on a key types into the control that has the
// focus, as the device's soft keyboard does; the panel itself never takes the focus.

#include <QString>
#include <QWidget>

#include <vector>

class InputPanel : public QWidget {
    Q_OBJECT
public:
    static constexpr int kWidth = 240;
    static constexpr int kHeight = 80;

    explicit InputPanel(QWidget* parent);

    // The key under pos (panel pixels): its label; empty for none.
    QString keyAt(const QPoint& pos) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Key {
        QString label;
        int qtKey = 0; // 0 for a character key
        QRect rect;
    };
    void addRow(int row, const QString& characters, int indent);
    void addKey(const QString& label, int qtKey, const QRect& rect);
    void press(const Key& key);

    std::vector<Key> m_keys;
    bool m_shift = false;
};
