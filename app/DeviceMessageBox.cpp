#include "DeviceMessageBox.h"

#include "DeviceFonts.h"
#include "DeviceScreen.h"
#include "MessageBox.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace {
constexpr int kCaptionHeight = 20;
constexpr int kIconSize = 24;
const QColor kCaption(0x0A, 0x2A, 0x84);

QStyle::StandardPixmap iconOf(UINT type) {
    switch (type & MB_ICONMASK) {
    case MB_ICONSTOP:
        return QStyle::SP_MessageBoxCritical;
    case MB_ICONQUESTION:
        return QStyle::SP_MessageBoxQuestion;
    case MB_ICONEXCLAMATION:
        return QStyle::SP_MessageBoxWarning;
    case MB_ICONINFORMATION:
        return QStyle::SP_MessageBoxInformation;
    default:
        return QStyle::SP_CustomBase;
    }
}
} // namespace

DeviceMessageBox::DeviceMessageBox(const QString& text, const QString& caption, UINT type, QWidget* parent)
    : QDialog(parent), m_type(type), m_answer(escapeAnswer(type)) {
    setObjectName(QStringLiteral("DeviceMessageBox"));
    setWindowTitle(caption);
    setAutoFillBackground(true);

    auto* label = new QLabel(text, this);
    label->setObjectName(QStringLiteral("MessageText"));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* body = new QHBoxLayout;
    if (iconOf(type) != QStyle::SP_CustomBase) {
        auto* icon = new QLabel(this);
        icon->setPixmap(style()->standardIcon(iconOf(type)).pixmap(kIconSize, kIconSize));
        icon->setAlignment(Qt::AlignTop);
        body->addWidget(icon);
    }
    body->addWidget(label, 1);

    m_buttons = new QHBoxLayout;
    m_buttons->addStretch(1);
    // The first button is the default: no box of the program names another.
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL:
        addButton(IDOK, QStringLiteral("OK"), true);
        addButton(IDCANCEL, QStringLiteral("Cancel"), false);
        break;
    case MB_YESNO:
        addButton(IDYES, QStringLiteral("Yes"), true);
        addButton(IDNO, QStringLiteral("No"), false);
        break;
    default:
        addButton(IDOK, QStringLiteral("OK"), true);
        break;
    }
    m_buttons->addStretch(1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, kCaptionHeight + 8, 8, 8);
    layout->setSpacing(10);
    layout->addLayout(body, 1);
    layout->addLayout(m_buttons);
}

void DeviceMessageBox::addButton(int id, const QString& text, bool isDefault) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(QStringLiteral("c%1").arg(id));
    button->setMinimumWidth(56);
    button->setDefault(isDefault);
    connect(button, &QPushButton::clicked, this, [this, id] {
        m_answer = id;
        accept();
    });
    m_buttons->addWidget(button);
}

int DeviceMessageBox::escapeAnswer(UINT type) {
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL:
        return IDCANCEL;
    case MB_YESNO:
        return IDNO;
    default:
        return IDOK;
    }
}

int DeviceMessageBox::run() {
    DeviceScreen* screen = DeviceScreen::of(parentWidget());
    if (screen == nullptr) {
        screen = DeviceScreen::current();
    }
    if (screen != nullptr) {
        screen->execModal(*this, DeviceScreen::Placement::Centred);
    } else {
        exec();
    }
    return m_answer;
}

void DeviceMessageBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        m_answer = escapeAnswer(m_type);
        reject();
        return;
    }
    QDialog::keyPressEvent(event);
}

void DeviceMessageBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(0, 0, width(), kCaptionHeight, kCaption);
    painter.setPen(Qt::white);
    painter.setFont(DeviceFonts::tahoma(14, true));
    painter.drawText(QRect(6, 0, width() - 12, kCaptionHeight), Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(windowTitle(), Qt::ElideRight, width() - 12));
    painter.setPen(QColor(0x40, 0x40, 0x40));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
