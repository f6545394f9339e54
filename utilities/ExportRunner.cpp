#include "ExportRunner.h"

#include "CsvExport.h"
#include "DevicePaths.h"
#include "ExportProgress.h"
#include "UtilityReport.h"

namespace {
// The export's progress shown through a data utility's report. The question has been asked by the
// caller already, so it is taken as answered yes.
class ReportedExport : public ExportProgress {
public:
    explicit ReportedExport(UtilityReport& report) : m_report(report) {}

    bool confirm(const QString&) override { return true; }
    void status(const QString& text) override { m_report.status(text); }
    void progressRange(int maximum) override { m_report.progressRange(0, maximum); }
    void progressPosition(int position) override {
        m_report.progressPosition(position);
        m_report.keepResponsive();
    }
    void message(const QString& text, MessageKind) override { m_report.message(text); }

private:
    UtilityReport& m_report;
};
} // namespace

QString ExportRunner::question() {
    return CsvExport::question();
}

bool ExportRunner::run(const QString& user, UtilityReport& report) {
    ReportedExport progress(report);
    return CsvExport(DatabaseCatalogue::userDatabaseNames(user), DevicePaths::current().myDocuments()).run(progress);
}
