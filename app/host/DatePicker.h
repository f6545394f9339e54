#pragma once
// The date picker of the pages: the date as "3/14/2024", typed or chosen from a month calendar that
// drops down under it. The calendar is sized for the device's screen and kept on it (Qt places a
// pop-up against the desktop's screen, where it would run off the device's right edge).

#include <QDateEdit>

class DatePicker : public QDateEdit {
    Q_OBJECT
public:
    explicit DatePicker(QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keepOnScreen(QWidget* popup) const;
};
