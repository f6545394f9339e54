#include "ConfirmDialog.h"

#include "MessageBox.h"
#include "RegistryHelper.h"
#include "SaveFailure.h"
#include "Settings.h"
#include "resource.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

ConfirmDialog::ConfirmDialog(QWidget* parent)
    : DeviceDialog(QStringLiteral("ConfirmDialog"), QStringLiteral("Kovalin"), parent) {
    m_text = new QLabel(content());
    m_text->setObjectName(QStringLiteral("c%1").arg(IDC_CONFIRM_TEXT));
    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_yesLabel = new QLabel(QStringLiteral("Type 'yes' here and click OK to continue"), content());
    m_yesLabel->setObjectName(QStringLiteral("c%1").arg(IDC_CONFIRM_YESLABEL));
    m_yesLabel->setWordWrap(true);
    m_yes = new QLineEdit(content());
    m_yes->setObjectName(QStringLiteral("c%1").arg(IDC_CONFIRM_YES));
    m_dontShow = new QCheckBox(QStringLiteral("Don't show this message again."), content());
    m_dontShow->setObjectName(QStringLiteral("c%1").arg(IDC_CONFIRM_DONTSHOW));

    auto* layout = new QVBoxLayout(content());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_yesLabel);
    layout->addWidget(m_yes);
    layout->addWidget(m_dontShow);

    addCancelButton();
    addOkButton();
}

ConfirmResult ConfirmDialog::ask(const ConfirmRequest& request) {
    m_text->setText(request.text);
    m_yesMode = request.yesBox;
    m_yesLabel->setVisible(request.yesBox);
    m_yes->setVisible(request.yesBox);
    m_dontShow->setVisible(request.dontShowBox);
    m_result = {};
    run();
    return m_result;
}

void ConfirmDialog::onOk() {
    m_result.okPressed = true;
    // Only the exact lower-case word confirms.
    m_result.confirmed = !m_yesMode || m_yes->text() == QStringLiteral("yes");
    if (m_dontShow->isVisibleTo(this) && m_dontShow->isChecked()) {
        if (const DWORD error = RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kDontShow, 1)) {
            MessageBoxW(this, SaveFailure::text(error), QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
        }
    }
    accept();
}
