#include "ErrorMessage.h"

namespace {
// The sentence for each cause, %1 the path; the error number follows in brackets.
QString sentence(DWORD error) {
    switch (error) {
    case ERROR_ACCESS_DENIED:
        return QStringLiteral("Kovalin cannot write to %1: permission is denied");
    case ERROR_DISK_FULL:
        return QStringLiteral("Kovalin cannot write to %1: the disk is full");
    case ERROR_WRITE_FAULT:
        return QStringLiteral("Kovalin cannot write to %1: the disk reported an input/output error");
    case ERROR_READ_FAULT:
        return QStringLiteral("Kovalin cannot read %1: the file is not readable, or the disk reported an "
                              "input/output error");
    case ERROR_BADDB:
        return QStringLiteral("%1 is damaged or is not a Kovalin store; it has been left as it was");
    case ERROR_DIR_NOT_EMPTY:
        return QStringLiteral("%1 is not a Kovalin device: the folder holds other files and no objectstore.db");
    case ERROR_DIRECTORY:
        return QStringLiteral("%1 is not a folder");
    case ERROR_SHARING_VIOLATION:
        return QStringLiteral("%1 is in use by another program");
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return QStringLiteral("%1 cannot be found");
    default:
        return QStringLiteral("Kovalin cannot use %1");
    }
}
} // namespace

QString ErrorMessage::forPath(const QString& path, DWORD error) {
    return sentence(error).arg(path) + QStringLiteral(" (error %1).").arg(error);
}
