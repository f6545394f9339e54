#pragma once
// The Utilities dialog (menu "Utilities"): Backup, Restore, Compact, Delete, Export, Import and Help,
// a status line and a progress bar. The operations are the utilities library's; the dialog asks the
// questions, shows what they report, and keeps the screen alive while they run on the one thread.

#include "DeviceDialog.h"
#include "UtilityReport.h"

#include <QElapsedTimer>
#include <QStringList>

#include <functional>

class MainDialog;
class QLabel;
class QProgressBar;
class QPushButton;

class UtilitiesDialog : public DeviceDialog, public UtilityReport {
    Q_OBJECT
public:
    static const QString kHelpText;

    explicit UtilitiesDialog(MainDialog& main);

    // True once Delete has removed the data: the program is to end when the dialog has closed.
    bool endsProgram() const { return m_endsProgram; }

    // What Import asks when the device holds version 1 data: Yes imports it, No files.
    static const QString kImportQuestion;
    // Chooses the files of a history to import (none: cancelled). The desktop's file dialog, unless a
    // test sets another.
    using FileChooser = std::function<QStringList(QWidget* parent)>;
    void setFileChooser(FileChooser chooser) { m_chooseFiles = std::move(chooser); }

    void backup();
    void restore();
    void compact();
    void deleteAllData();
    void exportData();
    void importData();
    void help();

    // UtilityReport.
    void status(const QString& text) override;
    void message(const QString& text) override;
    void progressRange(int low, int high) override;
    void progressPosition(int position) override;
    void progressStep(int step) override;
    void stepProgress() override;
    void keepResponsive() override;

private:
    QPushButton* addButton(int id, const QString& text, void (UtilitiesDialog::*handler)());
    void place();
    // Runs an operation with the buttons off, so that the events handled meanwhile start nothing.
    template <typename Operation> void running(Operation&& operation);
    bool askYesNo(const QString& text);
    void cancelled();
    void importHistory();

    MainDialog& m_main;
    QList<QPushButton*> m_buttons;
    QLabel* m_status = nullptr;
    QProgressBar* m_progress = nullptr;
    int m_step = 10; // the device control's step until one is set
    QElapsedTimer m_sincePaint;
    bool m_endsProgram = false;
    FileChooser m_chooseFiles;
};
