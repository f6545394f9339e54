#include "GoalsDialog.h"

#include "GoalsFile.h"
#include "MessageBox.h"
#include "resource.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>

GoalsDialog::GoalsDialog(QWidget* parent)
    : DeviceDialog(QStringLiteral("GoalsDialog"), QStringLiteral("Goals"), parent) {
    auto* label = new QLabel(QStringLiteral("My goals:"), content());
    m_text = new QPlainTextEdit(content());
    m_text->setObjectName(QStringLiteral("c%1").arg(IDC_GOALS_TEXT));
    bool ok = true;
    m_text->setPlainText(GoalsFile::read(&ok));
    m_readFailed = !ok;

    auto* layout = new QVBoxLayout(content());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(m_text, 1);
    addCancelButton();
    addOkButton();
}

QString GoalsDialog::text() const {
    return m_text->toPlainText();
}

void GoalsDialog::showEvent(QShowEvent* event) {
    DeviceDialog::showEvent(event);
    if (m_readFailed) {
        m_readFailed = false;
        QTimer::singleShot(0, this, [this] {
            MessageBoxW(this,
                        QStringLiteral("Your goals could not be read from ") + GoalsFile::devicePath() +
                            QStringLiteral("."),
                        QStringLiteral("Goals"), MB_OK | MB_ICONERROR);
        });
    }
}

void GoalsDialog::onOk() {
    QString error;
    if (!GoalsFile::write(text(), &error)) {
        MessageBoxW(this, QStringLiteral("Your goals could not be saved: ") + error, QStringLiteral("Goals"),
                    MB_OK | MB_ICONERROR);
        return;
    }
    accept();
}
