#pragma once
// The start-up progress box (dialog 231, "Initializing Kovalin"): a picture, a read-only text line
// and a bar of six steps, put up modeless over the main dialog. Its one 100 ms timer lets the box be
// painted before the long work starts; on the first tick it runs the work and closes itself.

#include <QFrame>

#include <functional>

class QLabel;
class QLineEdit;
class QProgressBar;

class StartupDialog : public QFrame {
    Q_OBJECT
public:
    static constexpr int kSteps = 6;
    static constexpr int kTimerPeriodMs = 100;
    using Work = std::function<void(StartupDialog&)>;

    StartupDialog(Work work, QWidget* parent);

    // Initialisation: the bar's range 0 to 6 with step 1, then the timer.
    void start();
    // Shows text on the text line at once.
    void setText(const QString& text);
    // Advances the bar by its step.
    void stepIt();

    QString text() const;
    int position() const;

signals:
    // A text has been shown, with the bar's position at that moment.
    void textShown(const QString& text, int position);
    // The work has run and the box has closed.
    void finished();

protected:
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Work m_work;
    QLabel* m_picture = nullptr;
    QLineEdit* m_text = nullptr;
    QProgressBar* m_bar = nullptr;
    int m_step = 0;
    int m_timerId = 0;
};
