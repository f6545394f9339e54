#pragma once
// The navigation bar across the top of the screen (rows 0-25), as on Pocket PC 2002: the program's
// icon, the title of what is in front ("Kovalin", or the modal dialog's title) and the clock.

#include <QTimer>
#include <QWidget>

class NavigationBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHeight = 26;

    explicit NavigationBar(QWidget* parent);

    void setTitle(const QString& title);
    QString title() const { return m_title; }
    // The clock as shown: the device's time without seconds ("9:41 AM").
    static QString clockText();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void scheduleTick();

    QString m_title;
    QTimer m_tick;
};
