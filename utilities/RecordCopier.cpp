#include "RecordCopier.h"

#include "CeDatabaseEx.h"
#include "RecordLimits.h"
#include "UtilityReport.h"
#include "VolumeTransaction.h"

#include <vector>

const QString RecordCopier::kDataAccessError = QStringLiteral("Data access error");

bool RecordCopier::copyAll(HANDLE from, HANDLE to, UtilityReport& report, const QString& checkedSource) {
    // Data from outside is held to the limits record by record as it is copied.
    QString overLimitsReason;
    CeRecordCheck check;
    if (!checkedSource.isEmpty()) {
        check = [&overLimitsReason](const std::vector<CEPROPVAL>& props) {
            overLimitsReason = RecordLimits::check(props);
            return overLimitsReason.isEmpty();
        };
    }
    // In batches, so that a window stays responsive between them.
    constexpr DWORD kBatch = 256;
    for (;;) {
        DWORD copied = 0;
        if (!CeCopyRecords(from, to, kBatch, &copied, check)) {
            report.message(overLimitsReason.isEmpty() ? kDataAccessError : overLimits(checkedSource, overLimitsReason));
            return false;
        }
        report.keepResponsive();
        if (copied < kBatch) {
            return true;
        }
    }
}

QString RecordCopier::overLimits(const QString& source, const QString& reason) {
    return QStringLiteral("%1 holds a record larger than Kovalin keeps (%2). Nothing was changed.").arg(source, reason);
}

bool RecordCopier::eachInOneTransaction(const CEGUID& volume, const std::array<BackupCopy, kUserDatabaseCount>& order,
                                        const std::function<bool(const BackupCopy&)>& copyLog,
                                        UtilityReport& report) {
    VolumeTransaction transaction(volume);
    if (!transaction.isActive()) {
        report.message(kDataAccessError);
        return false;
    }
    for (const BackupCopy& copy : order) {
        if (!copyLog(copy)) {
            return false;
        }
        report.stepProgress();
    }
    if (!transaction.commit()) {
        report.message(kDataAccessError);
        return false;
    }
    return true;
}
