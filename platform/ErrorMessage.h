#pragma once
// The sentences that tell a person why a file or folder of the device could not be used: one per
// cause, each naming the path and the cause in words, with the platform's error number after it
// in brackets. Every refusal of a device, an object store or a volume file is told with these.

#include "WinTypes.h"

#include <QString>

class ErrorMessage {
public:
    // error is the last error of the call that failed on path.
    static QString forPath(const QString& path, DWORD error);
};
