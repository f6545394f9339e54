#pragma once
// A call's result together with the last error it left, so that one line checks both:
// EXPECT_EQ(outcome(CeDeleteDatabaseEx(&guid, oid)), (CallOutcome{0, 87})).

#include "WinTypes.h"

#include <ostream>

struct CallOutcome {
    unsigned long long result;
    DWORD error;

    friend bool operator==(const CallOutcome&, const CallOutcome&) = default;
    friend std::ostream& operator<<(std::ostream& out, const CallOutcome& o) {
        return out << "result " << o.result << ", last error " << o.error;
    }
};

// The argument is evaluated, and its last error set, before GetLastError reads it.
template <typename T> CallOutcome outcome(T result) {
    return {static_cast<unsigned long long>(result), GetLastError()};
}
