#include "RecordLimits.h"

#include "DbRecord.h"

#include <algorithm>
#include <iterator>

namespace {
constexpr WORD kNoteNumbers[] = {1132, 1142, 1143};
constexpr qint64 kPropertyOverhead = 4;

qint64 valueSize(const CEPROPVAL& prop) {
    switch (TypeFromPropID(prop.propid)) {
    case CEVT_I2:
    case CEVT_UI2:
        return 2;
    case CEVT_I4:
    case CEVT_UI4:
    case CEVT_BOOL:
        return 4;
    case CEVT_LPWSTR:
        return (prop.val.lpwstr.size() + 1) * 2;
    case CEVT_BLOB:
        return prop.val.blob.size();
    default:
        return 8;
    }
}
} // namespace

bool RecordLimits::isNote(CEPROPID id) {
    if (TypeFromPropID(id) != CEVT_LPWSTR) {
        return false;
    }
    return std::find(std::begin(kNoteNumbers), std::end(kNoteNumbers), HIWORD(id)) != std::end(kNoteNumbers);
}

int RecordLimits::maxTextLength(CEPROPID id) {
    return isNote(id) ? kMaxNoteLength : kMaxNameLength;
}

qint64 RecordLimits::size(const std::vector<CEPROPVAL>& props) {
    qint64 total = 0;
    for (const CEPROPVAL& prop : props) {
        if ((prop.wFlags & CEDB_PROPDELETE) == 0) {
            total += valueSize(prop) + kPropertyOverhead;
        }
    }
    return total;
}

QString RecordLimits::check(const std::vector<CEPROPVAL>& props) {
    for (const CEPROPVAL& prop : props) {
        if ((prop.wFlags & CEDB_PROPDELETE) != 0) {
            continue;
        }
        const WORD type = TypeFromPropID(prop.propid);
        const int number = HIWORD(prop.propid);
        if (type == CEVT_LPWSTR && prop.val.lpwstr.size() > maxTextLength(prop.propid)) {
            return isNote(prop.propid)
                       ? QStringLiteral("property %1 holds a note of %2 characters; a note holds at most %3")
                             .arg(number)
                             .arg(prop.val.lpwstr.size())
                             .arg(kMaxNoteLength)
                       : QStringLiteral("property %1 holds a text of %2 characters; a name or other text holds "
                                        "at most %3")
                             .arg(number)
                             .arg(prop.val.lpwstr.size())
                             .arg(kMaxNameLength);
        }
        if (type == CEVT_BLOB && prop.val.blob.size() > kMaxBlobSize) {
            return QStringLiteral("property %1 holds %2 bytes; a property holds at most %3")
                .arg(number)
                .arg(prop.val.blob.size())
                .arg(kMaxBlobSize);
        }
    }
    const qint64 total = size(props);
    if (total > kMaxRecordSize) {
        return QStringLiteral("a record takes %1 bytes; a record holds at most %2").arg(total).arg(kMaxRecordSize);
    }
    return {};
}

QString RecordLimits::check(const DbRecord& record) {
    return check(record.toPropVals());
}
