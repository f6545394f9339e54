#include "RecordCopier.h"

#include "CeDatabaseEx.h"
#include "UtilityReport.h"

#include <vector>

const QString RecordCopier::kDataAccessError = QStringLiteral("Data access error");

bool RecordCopier::copyAll(HANDLE from, HANDLE to, UtilityReport& report) {
    // In batches, so that a window stays responsive between them.
    constexpr DWORD kBatch = 256;
    for (;;) {
        DWORD copied = 0;
        if (!CeCopyRecords(from, to, kBatch, &copied)) {
            report.message(kDataAccessError);
            return false;
        }
        report.keepResponsive();
        if (copied < kBatch) {
            return true;
        }
    }
}

bool RecordCopier::readAll(HANDLE from, UtilityReport& report) {
    std::vector<CEPROPVAL> props;
    while (CeReadRecordProps(from, 0, &props) != 0) {
        report.keepResponsive();
    }
    return GetLastError() == ERROR_NO_MORE_ITEMS;
}
