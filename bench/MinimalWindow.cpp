// The start-up benchmark's baseline: a Qt Widgets window of the device screen's size, started the
// way Kovalin starts (the same default scale), ending itself once it has been painted.

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace {
class Window : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), Qt::white);
        if (!m_painted) {
            m_painted = true;
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        }
    }

private:
    bool m_painted = false;
};
} // namespace

int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) {
        qputenv("QT_SCALE_FACTOR", "3");
    }
    QApplication application(argc, argv);
    Window window;
    window.setFixedSize(240, 320);
    window.show();
    return QApplication::exec();
}
