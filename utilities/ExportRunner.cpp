#include "ExportRunner.h"

#include "UtilityReport.h"

QString ExportRunner::question() {
    return QStringLiteral(
        "Copies your Kovalin data to .csv format files, which can then be copied to your desktop computer and "
        "imported into Excel or Access.  Six files will be created and placed in the My Documents folder on the "
        "Pocket PC.  These are kovupper.csv, kovupper2.csv, kovlower.csv, kovlower2.csv, kovaerobic.csv, and "
        "kovfood.csv.  Your Kovalin data will not be removed from the Pocket PC. It is recommended that you choose "
        "Backup to backup your data prior to performing this operation. OK to proceed?");
}

// TO CONNECT: the CSV writer (class CsvExport, utilities/CsvExport.h) is built beside this one; once it
// is in the tree this function hands it the user and the report and returns its result.
bool ExportRunner::run(const QString& user, UtilityReport& report) {
    Q_UNUSED(user);
    report.status(QString());
    report.message(QStringLiteral("The CSV export is not part of this version of Kovalin yet."));
    return false;
}
