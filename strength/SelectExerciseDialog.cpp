#include "SelectExerciseDialog.h"

#include "MessageBox.h"
#include "resource.h"

#include <QListWidget>
#include <QPushButton>

namespace {
constexpr int kMargin = 4;
constexpr int kButtonWidth = 64;
constexpr int kButtonHeight = 22;
} // namespace

SelectExerciseDialog::SelectExerciseDialog(const QStringList& exercises, const QString& current, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("SelectExerciseDialog"));
    setWindowTitle(QStringLiteral("Select an exercise"));
    setAutoFillBackground(true);
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("c%1").arg(IDC_EXERCISE_LIST));
    m_list->addItems(exercises);
    if (const QList<QListWidgetItem*> found = m_list->findItems(current, Qt::MatchExactly); !found.isEmpty()) {
        m_list->setCurrentItem(found.first());
    }
    m_ok = new QPushButton(QStringLiteral("OK"), this);
    m_ok->setObjectName(QStringLiteral("c%1").arg(IDOK));
    m_ok->setDefault(true);
    m_cancel = new QPushButton(QStringLiteral("Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("c%1").arg(IDCANCEL));
    m_cancel->setAutoDefault(false);
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
}

QString SelectExerciseDialog::selectedExercise() const {
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void SelectExerciseDialog::resizeEvent(QResizeEvent*) {
    // Cancel at the bottom left and OK at the bottom right, as on every dialog of the device.
    const int buttonTop = height() - kButtonHeight - kMargin;
    m_list->setGeometry(kMargin, kMargin, width() - 2 * kMargin, buttonTop - 2 * kMargin);
    m_cancel->setGeometry(kMargin, buttonTop, kButtonWidth, kButtonHeight);
    m_ok->setGeometry(width() - kButtonWidth - kMargin, buttonTop, kButtonWidth, kButtonHeight);
}
