#pragma once
// What a person is told when a change could not be written to the object store: that it was not
// saved, and why in words (a full disk, a disk fault, a store that cannot be written, a value over
// the record limits). A page that tried then shows what the store holds.

#include "WinTypes.h"

#include <QString>

class SaveFailure {
public:
    // error: the last error the failed write left.
    static QString text(DWORD error);
};
