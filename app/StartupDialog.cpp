#include "StartupDialog.h"

#include "Bitmaps.h"
#include "DeviceFonts.h"
#include "resource.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProgressBar>
#include <QTimerEvent>

namespace {
constexpr int kWidth = 220;
constexpr int kHeight = 92;
constexpr int kCaptionHeight = 20;
const QColor kCaption(0x0A, 0x2A, 0x84);
} // namespace

StartupDialog::StartupDialog(Work work, QWidget* parent) : QFrame(parent), m_work(std::move(work)) {
    setObjectName(QStringLiteral("StartupDialog"));
    setWindowTitle(QStringLiteral("Initializing Kovalin"));
    setFixedSize(kWidth, kHeight);
    setAutoFillBackground(true);

    m_picture = new QLabel(this);
    m_picture->setObjectName(QStringLiteral("c%1").arg(IDC_STARTUP_PICTURE));
    m_picture->setPixmap(Bitmaps::masked(IDB_STARTUP));
    m_picture->setGeometry(8, kCaptionHeight + 8, 32, 32);

    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("c%1").arg(IDC_STARTUP_TEXT));
    m_text->setReadOnly(true);
    m_text->setFrame(false);
    m_text->setFocusPolicy(Qt::NoFocus);
    m_text->setGeometry(46, kCaptionHeight + 14, kWidth - 54, 20);

    m_bar = new QProgressBar(this);
    m_bar->setObjectName(QStringLiteral("c%1").arg(IDC_STARTUP_PROGRESS));
    m_bar->setTextVisible(false);
    m_bar->setGeometry(8, kHeight - 22, kWidth - 16, 12);
}

void StartupDialog::start() {
    if (QWidget* owner = parentWidget()) {
        move((owner->width() - width()) / 2, (owner->height() - height()) / 2);
    }
    m_bar->setRange(0, kSteps);
    m_bar->setValue(0);
    m_step = 1;
    show();
    raise();
    m_timerId = startTimer(kTimerPeriodMs);
}

void StartupDialog::setText(const QString& text) {
    m_text->setText(text);
    // The work runs inside one timer message: paint now, or nothing shows until it ends.
    m_text->repaint();
    emit textShown(text, m_bar->value());
}

void StartupDialog::stepIt() {
    m_bar->setValue(std::min(m_bar->maximum(), m_bar->value() + m_step));
    m_bar->repaint();
}

QString StartupDialog::text() const {
    return m_text->text();
}

int StartupDialog::position() const {
    return m_bar->value();
}

void StartupDialog::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timerId) {
        QFrame::timerEvent(event);
        return;
    }
    killTimer(m_timerId);
    m_timerId = 0;
    m_work(*this);
    hide();
    emit finished();
    deleteLater();
}

void StartupDialog::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(0, 0, width(), kCaptionHeight, kCaption);
    painter.setPen(Qt::white);
    painter.setFont(DeviceFonts::tahoma(14, true));
    painter.drawText(QRect(6, 0, width() - 12, kCaptionHeight), Qt::AlignVCenter | Qt::AlignLeft, windowTitle());
    painter.setPen(QColor(0x40, 0x40, 0x40));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
