// The Utilities dialog on the whole program, driven through its buttons; the logs are written and
// read back with plain SQL.

#include "UtilitiesDialog.h"
#include "MessageBox.h"
#include "ShellTestSupport.h"
#include "SqlLogWriter.h"
#include "VolumeFiles.h"
#include "resource.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
const QStringList kLogs = {"Kov2AUpperBody", "Kov2BUpperBody", "Kov2ALowerBody",
                           "Kov2BLowerBody", "Kov2Aerobic",    "Kov2Food"};

class UtilitiesDialogTest : public ShellTest {
protected:
    UtilitiesDialogTest() : m_store(m_device.paths().objectStore()) {
        for (const QString& log : kLogs) {
            m_store.writeDay(log, QDate(2024, 3, 14));
        }
        start();
        m_factory.log.clear();
    }

    // Opens the dialog, runs first on it, presses the buttons in turn (each press returns when its
    // operation has), and reads the status line before the dialog closes.
    void press(const QList<int>& buttons, const std::function<void(UtilitiesDialog*)>& first = {}) {
        whenShown("UtilitiesDialog", [&](QWidget* dialog) {
            if (first) {
                first(static_cast<UtilitiesDialog*>(dialog));
            }
            for (int id : buttons) {
                dialog->findChild<QPushButton*>(QStringLiteral("c%1").arg(id))->click();
            }
            m_status = dialog->findChild<QLabel*>(QStringLiteral("c%1").arg(IDC_UTIL_STATUS))->text();
            if (auto* ok = dialog->findChild<QPushButton*>("c1"); ok != nullptr && dialog->isVisible()) {
                ok->click();
            }
        });
        trigger(ID_MENU_UTILITIES);
    }

    SqlLogWriter m_store;
    QString m_status;
};

// The backup's box, the restore question and a refused restore are shown by the screen pictures.
TEST_F(UtilitiesDialogTest, RestoreAnsweredYesReportsInABoxAndReloadsThePages) {
    press({IDC_UTIL_BACKUP});
    m_boxes.clear();
    m_boxes.queueAnswer(IDYES);
    press({IDC_UTIL_RESTORE});
    EXPECT_EQ(m_boxes.texts().value(1), "Restore successful!");
    EXPECT_TRUE(m_factory.log.contains("food reload"));
}

TEST_F(UtilitiesDialogTest, ExportRefusedSaysCancelled) {
    m_boxes.queueAnswer(IDNO);
    press({IDC_UTIL_EXPORT});
    EXPECT_EQ(m_status, "Cancelled.");
    EXPECT_TRUE(m_boxes.texts().last().startsWith("Copies your Kovalin data to .csv format files"));
}

TEST_F(UtilitiesDialogTest, CompactAndHelpTellTheirResultsInBoxes) {
    press({IDC_UTIL_COMPACT, IDC_UTIL_HELP});
    ASSERT_EQ(m_boxes.texts().size(), 2);
    EXPECT_EQ(m_boxes.texts()[0], "Compact complete!");
    EXPECT_TRUE(m_boxes.texts()[1].contains("desktop programs for furhter analysis.  IMPORT: Brings in data"));
}

// Import offers the version 1 data first when the device holds some (a question the screen pictures
// show), else goes to the file dialog; the report comes in a box and the pages show what came in.
TEST_F(UtilitiesDialogTest, ImportBringsTheChosenFilesAndShowsTheReport) {
    const QString body = m_device.root() + "/body.csv";
    VolumeFiles::writeFile(
        body, "date,water,weight,body_fat,sleep,sleep_quality,overall_feeling,systolic,diastolic,"
              "resting_heart_rate,chest,biceps,waist,quads,calves,notes\r\n2024-03-20,,170,,,,,,,,,,,,,\r\n");
    m_store.writeLog("KovUpperBody");
    QList<QStringList> choices = {{}, {body}};
    const auto chooser = [&choices](UtilitiesDialog* dialog) {
        dialog->setFileChooser([&choices](QWidget*) { return choices.takeFirst(); });
    };
    m_boxes.queueAnswer(IDNO);
    press({IDC_UTIL_IMPORT}, chooser);
    EXPECT_EQ(m_status, "Cancelled.");
    m_boxes.queueAnswer(IDNO);
    press({IDC_UTIL_IMPORT}, chooser);
    EXPECT_EQ(m_status, "Import complete.");
    EXPECT_TRUE(m_boxes.texts().last().contains("Food and body: 1 days added, 0 filled"));
    EXPECT_TRUE(m_factory.log.contains("food reload"));
}

TEST_F(UtilitiesDialogTest, DeleteNeedsTheTypedYesThenDeletesAndEndsTheProgram) {
    for (const QString typed : {"Yes", "yes"}) {
        whenShown("ConfirmDialog", [typed](QWidget* confirm) {
            confirm->findChild<QLineEdit*>()->setText(typed);
            confirm->findChild<QPushButton*>("c1")->click();
        });
        press({IDC_UTIL_DELETE});
    }
    ASSERT_EQ(m_boxes.texts().size(), 2);
    EXPECT_EQ(m_boxes.texts()[0], "Operation cancelled");
    EXPECT_EQ(m_boxes.texts()[1], "Database Deleted.  Kovalin will now close.  If you restart Kovalin, blank "
                                  "databases will be recreated.  Or you may now remove the program.");
    EXPECT_TRUE(main().hasEnded());
    // Nothing was saved into the deleted logs on the way out.
    EXPECT_FALSE(m_factory.log.contains("aerobic save"));
}
} // namespace
