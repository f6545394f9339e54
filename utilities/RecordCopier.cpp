#include "RecordCopier.h"

#include "RecordLimits.h"
#include "UtilityReport.h"

#include <vector>

const QString RecordCopier::kDataAccessError = QStringLiteral("Data access error");

bool RecordCopier::copyAll(HANDLE from, HANDLE to, UtilityReport& report) {
    // One buffer for the whole loop: the reads grow it as the records need.
    std::vector<CEPROPVAL> props;
    for (;;) {
        if (CeReadRecordProps(from, 0, &props) == 0) {
            if (GetLastError() == ERROR_NO_MORE_ITEMS) {
                return true;
            }
            report.message(kDataAccessError);
            return false;
        }
        // A write that fails (a full disk) would otherwise lose the record without a word.
        if (CeWriteRecordProps(to, 0, props) == 0) {
            report.message(kDataAccessError);
            return false;
        }
        report.keepResponsive();
    }
}

bool RecordCopier::readAll(HANDLE from, UtilityReport& report) {
    std::vector<CEPROPVAL> props;
    while (CeReadRecordProps(from, 0, &props) != 0) {
        if (const QString reason = RecordLimits::check(props); !reason.isEmpty()) {
            report.message(overLimits(QStringLiteral("The backup"), reason));
            return false;
        }
        report.keepResponsive();
    }
    return GetLastError() == ERROR_NO_MORE_ITEMS;
}

QString RecordCopier::overLimits(const QString& source, const QString& reason) {
    return QStringLiteral("%1 holds a record larger than Kovalin keeps (%2). Nothing was changed.").arg(source, reason);
}
