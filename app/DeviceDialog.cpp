#include "DeviceDialog.h"

#include "MessageBox.h"

#include <QPushButton>

namespace {
constexpr int kButtonWidth = 64;
} // namespace

DeviceDialog::DeviceDialog(const QString& className, const QString& title, QWidget* parent) : QDialog(parent) {
    setObjectName(className);
    setWindowTitle(title);
    setAutoFillBackground(true);
    resize(kWidth, kHeight);
    m_content = new QWidget(this);
}

int DeviceDialog::run() {
    return DeviceScreen::runModal(*this, placement());
}

QPushButton* DeviceDialog::addOkButton(const QString& text) {
    m_ok = new QPushButton(text, this);
    m_ok->setObjectName(QStringLiteral("c%1").arg(IDOK));
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, [this] { onOk(); });
    resizeEvent(nullptr);
    return m_ok;
}

QPushButton* DeviceDialog::addCancelButton() {
    m_cancel = new QPushButton(QStringLiteral("Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("c%1").arg(IDCANCEL));
    m_cancel->setAutoDefault(false);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    resizeEvent(nullptr);
    return m_cancel;
}

void DeviceDialog::resizeEvent(QResizeEvent*) {
    const int buttonTop = height() - kButtonHeight - kMargin;
    m_content->setGeometry(kMargin, kMargin, width() - 2 * kMargin, buttonTop - 2 * kMargin);
    if (m_ok != nullptr) {
        m_ok->setGeometry(width() - kButtonWidth - kMargin, buttonTop, kButtonWidth, kButtonHeight);
    }
    if (m_cancel != nullptr) {
        m_cancel->setGeometry(kMargin, buttonTop, kButtonWidth, kButtonHeight);
    }
}
