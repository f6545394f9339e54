#pragma once
// The one-time conversion of Kov2UpperBody, the upper-body log of an earlier release, into the
// upper-body pair Kov2AUpperBody / Kov2BUpperBody.
//
// Kov2UpperBody holds one record per day under the day key: the workout header (102-105, 1132,
// 1133) and the sets of all six groups (106-705). Each day becomes an A record (the key, the header
// and every property outside 306-705, i.e. groups 0 and 1) and a B record (the key and groups 2 to
// 5). A day that the pair already holds, in either database, is left as the pair has it. The
// earlier release knew no users, so its days go to the Default user's pair (the bare names).
//
// The source is never changed. The days and the registry value UpConv = 1 are written in one
// transaction, so the conversion happens whole, once, or not at all: a run cut short by an error or
// a kill leaves nothing of itself, and the next start tries again.

#include <QString>

class QObject;

class UpperBodyConversion {
public:
    static inline const QString kSourceName = QStringLiteral("Kov2UpperBody");
    static inline const QString kDoneValue = QStringLiteral("UpConv");
    static inline const QString kFailedText = QStringLiteral(
        "The upper-body log of an earlier release (Kov2UpperBody) could not be converted completely. It is kept "
        "as it was, and the conversion will be tried again at the next start.");

    // Converts into the pair aName / bName when the source exists and the conversion has not been
    // done. A failure shows kFailedText over owner.
    static void runOnce(const QString& aName, const QString& bName, QObject* owner = nullptr);
    // The same into the Default user's pair.
    static void runOnce(QObject* owner = nullptr);
};
