#include "UtilitiesDialog.h"

#include "Backup.h"
#include "Compact.h"
#include "DeleteAllData.h"
#include "DeviceFonts.h"
#include "ExportRunner.h"
#include "HistoryImport.h"
#include "MainDialog.h"
#include "MessageBox.h"
#include "Restore.h"
#include "Version1Import.h"
#include "resource.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {
const QString kCaption = QStringLiteral("Kovalin");
const QString kCancelled = QStringLiteral("Cancelled.");
constexpr int kButtonWidth = 112;
constexpr int kButtonHeight = 24;
constexpr int kGap = 8;
// How often the screen is brought up to date while an operation runs.
constexpr int kPaintIntervalMs = 30;
} // namespace

const QString UtilitiesDialog::kHelpText = QStringLiteral(
    "BACKUP: Backs up your Kovalin data to a file.  RESTORE: Restores Kovalin data from a backup.  COMPACT: Frees up "
    "space in the Kovalin database.  DELETE: Clears out all Kovalin data.  EXPORT: Puts the Kovalin data in .csv file "
    "format for importing into desktop programs for furhter analysis.  IMPORT: Brings in data from older versions of "
    "Kovalin.  For more information, click the appropriate item.");

const QString UtilitiesDialog::kImportQuestion = QStringLiteral(
    "This device holds data of Kovalin version 1. Import it now?  Choose No to bring in a history from files "
    "instead.");

UtilitiesDialog::UtilitiesDialog(MainDialog& main)
    : DeviceDialog(QStringLiteral("UtilitiesDialog"), QStringLiteral("Utilities"), &main), m_main(main) {
    m_chooseFiles = [](QWidget* parent) {
        return QFileDialog::getOpenFileNames(parent, QStringLiteral("Import a history"), QDir::homePath(),
                                             QStringLiteral("Histories (*.csv);;All files (*)"));
    };
    addButton(IDC_UTIL_BACKUP, QStringLiteral("Backup"), &UtilitiesDialog::backup);
    addButton(IDC_UTIL_RESTORE, QStringLiteral("Restore"), &UtilitiesDialog::restore);
    addButton(IDC_UTIL_EXPORT, QStringLiteral("Export"), &UtilitiesDialog::exportData);
    addButton(IDC_UTIL_IMPORT, QStringLiteral("Import"), &UtilitiesDialog::importData);
    addButton(IDC_UTIL_COMPACT, QStringLiteral("Compact"), &UtilitiesDialog::compact);
    addButton(IDC_UTIL_DELETE, QStringLiteral("Delete"), &UtilitiesDialog::deleteAllData);
    addButton(IDC_UTIL_HELP, QStringLiteral("Help"), &UtilitiesDialog::help);

    m_status = new QLabel(content());
    m_status->setObjectName(QStringLiteral("c%1").arg(IDC_UTIL_STATUS));
    m_status->setFont(DeviceFonts::dialogFont());
    m_status->setFrameShape(QFrame::Box);
    m_status->setIndent(3);
    m_progress = new QProgressBar(content());
    m_progress->setObjectName(QStringLiteral("c%1").arg(IDC_UTIL_PROGRESS));
    m_progress->setRange(0, 100);
    m_progress->setValue(0);
    m_progress->setTextVisible(false);
    m_buttons << addOkButton();
    place();
}

QPushButton* UtilitiesDialog::addButton(int id, const QString& text, void (UtilitiesDialog::*handler)()) {
    auto* button = new QPushButton(text, content());
    button->setObjectName(QStringLiteral("c%1").arg(id));
    button->setFont(DeviceFonts::dialogFont());
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, handler);
    m_buttons << button;
    return button;
}

void UtilitiesDialog::place() {
    // Two columns of buttons: what keeps the data (backup, restore), what takes it elsewhere or brings
    // it in (export, import), what removes it (compact, delete), and Help; under them the status line
    // and the progress bar.
    const int width = DeviceDialog::kWidth - 2 * DeviceDialog::kMargin;
    const int left = (width - 2 * kButtonWidth - kGap) / 2;
    for (int i = 0; i < 7; ++i) {
        const int row = i / 2;
        const int column = i % 2;
        m_buttons[i]->setGeometry(left + column * (kButtonWidth + kGap), kGap + row * (kButtonHeight + kGap),
                                  kButtonWidth, kButtonHeight);
    }
    const int statusTop = kGap + 4 * (kButtonHeight + kGap) + kGap;
    m_status->setGeometry(left, statusTop, 2 * kButtonWidth + kGap, 20);
    m_progress->setGeometry(left, statusTop + 20 + kGap, 2 * kButtonWidth + kGap, 14);
}

template <typename Operation> void UtilitiesDialog::running(Operation&& operation) {
    for (QPushButton* button : m_buttons) {
        button->setEnabled(false);
    }
    m_sincePaint.start();
    operation();
    for (QPushButton* button : m_buttons) {
        button->setEnabled(true);
    }
}

bool UtilitiesDialog::askYesNo(const QString& text) {
    return MessageBoxW(this, text, kCaption, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void UtilitiesDialog::backup() {
    running([this] { Backup::run(m_main.currentUserName(), *this); });
}

void UtilitiesDialog::restore() {
    status(QStringLiteral("Restoring..."));
    if (!askYesNo(Restore::question(m_main.currentUserName()))) {
        cancelled();
        return;
    }
    running([this] { Restore::run(m_main.currentUserName(), *this); });
    m_main.RefreshLogPages();
}

void UtilitiesDialog::compact() {
    running([this] { Compact::run(m_main.currentUserName(), *this); });
    m_main.RefreshLogPages();
}

void UtilitiesDialog::deleteAllData() {
    status(QStringLiteral("Deleting..."));
    ConfirmRequest request;
    request.text = DeleteAllData::question();
    request.yesBox = true;
    if (!m_main.confirm(request).confirmed) {
        cancelled();
        message(QStringLiteral("Operation cancelled"));
        return;
    }
    bool deleted = false;
    running([this, &deleted] { deleted = DeleteAllData::run(*this); });
    if (deleted) {
        message(DeleteAllData::closingMessage());
        m_endsProgram = true;
        accept();
    }
}

void UtilitiesDialog::exportData() {
    status(QStringLiteral("Exporting..."));
    if (!askYesNo(ExportRunner::question())) {
        cancelled();
        return;
    }
    running([this] { ExportRunner::run(m_main.currentUserName(), *this); });
}

void UtilitiesDialog::importData() {
    if (!Version1Import::dataPresent() || !askYesNo(kImportQuestion)) {
        importHistory();
        return;
    }
    running([this] { Version1Import::run(m_main.currentUserName(), *this); });
    m_main.RefreshLogPages();
}

void UtilitiesDialog::cancelled() {
    status(kCancelled);
    // Nothing ran: a bar left full by the operation before would say otherwise.
    m_progress->setValue(m_progress->minimum());
}

void UtilitiesDialog::importHistory() {
    status(QStringLiteral("Importing..."));
    // One or more files: all of a folder's brings the folder.
    const QStringList paths = m_chooseFiles(this);
    if (paths.isEmpty()) {
        cancelled();
        return;
    }
    HistoryImport::Outcome outcome;
    running([this, &paths, &outcome] { outcome = HistoryImport(m_main.currentUserName(), paths, {}, this).run(); });
    status(outcome.refused    ? QStringLiteral("Nothing imported.")
           : outcome.complete ? QStringLiteral("Import complete.")
                              : QStringLiteral("Imported, with rows left out."));
    // A box holds a screenful; the command line lists every row.
    constexpr int kShownLines = 16;
    QStringList lines = outcome.text.split(QLatin1Char('\n'));
    if (lines.size() > kShownLines) {
        const qsizetype more = lines.size() - kShownLines;
        lines = lines.mid(0, kShownLines);
        lines << QStringLiteral("... and %1 more (kovalin-cli import lists them all).").arg(more);
    }
    message(lines.join(QLatin1Char('\n')));
    m_main.RefreshLogPages();
}

void UtilitiesDialog::help() {
    MessageBoxW(this, kHelpText, kCaption, MB_OK | MB_ICONINFORMATION);
}

void UtilitiesDialog::status(const QString& text) {
    m_status->setText(text);
    m_status->repaint();
}

void UtilitiesDialog::message(const QString& text) {
    MessageBoxW(this, text, kCaption, MB_OK | MB_ICONINFORMATION);
}

void UtilitiesDialog::progressRange(int low, int high) {
    m_progress->setRange(low, high);
}

void UtilitiesDialog::progressPosition(int position) {
    m_progress->setValue(position);
}

void UtilitiesDialog::progressStep(int step) {
    m_step = step;
}

void UtilitiesDialog::stepProgress() {
    m_progress->setValue(std::min(m_progress->value() + m_step, m_progress->maximum()));
    m_progress->repaint();
}

void UtilitiesDialog::keepResponsive() {
    if (m_sincePaint.isValid() && m_sincePaint.elapsed() < kPaintIntervalMs) {
        return;
    }
    m_sincePaint.start();
    // Paints and timers run; taps wait until the operation is over (the buttons are off meanwhile).
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
