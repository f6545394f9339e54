#include "RecordCopier.h"

#include "CeDatabaseEx.h"
#include "RecordLimits.h"
#include "UtilityReport.h"
#include "VolumeTransaction.h"

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
        if (const QString reason = RecordLimits::check(props); !reason.isEmpty()) {
            report.message(overLimits(QStringLiteral("The backup"), reason));
            return false;
        }
        report.keepResponsive();
    }
    if (GetLastError() != ERROR_NO_MORE_ITEMS) {
        report.message(kDataAccessError);
        return false;
    }
    return true;
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
