#include "SaveFailure.h"

#include "DevicePaths.h"
#include "ErrorMessage.h"

QString SaveFailure::text(DWORD error) {
    const QString lead = QStringLiteral("Your change was not saved. ");
    if (error == ERROR_INVALID_PARAMETER) {
        // RecordDatabase refuses a record over the limits with this error.
        return lead + QStringLiteral("The change holds more text than Kovalin keeps.");
    }
    return lead + ErrorMessage::forPath(DevicePaths::current().objectStore(), error);
}
