#pragma once
// The three options that decide what the set-entry grid pulls in from earlier days. The page reads
// them from the registry at the moment of use and hands them over.

#include "WinTypes.h"

struct PullSettings {
    // Pull in the group's sets of the last day it was trained when today has none.
    bool pullLast = true;
    // When row 1's exercise changes, pull in the sets of the last day that exercise came first.
    bool pullWeights = false;
    // When that finds nothing, rows 2 to 5 take row 1's exercise.
    bool fillIn = false;

    // From the stored values of PullLast, PullWt and FillIn (an absent value reads as 0). PullLast is
    // inverted: on unless 1. The other two are on only when 1, and FillIn only together with PullWt.
    static PullSettings fromStored(DWORD pullLast, DWORD pullWt, DWORD fillIn) {
        return {pullLast != 1, pullWt == 1, pullWt == 1 && fillIn == 1};
    }
};
