// The record limits at their boundaries; the store's refusal of a write that breaks them is checked
// with the store's database.

#include "RecordLimits.h"
#include "DbRecord.h"

#include <gtest/gtest.h>

namespace {
DbRecord record(std::initializer_list<DbProp> props) {
    DbRecord made;
    for (const DbProp& prop : props) {
        made.append(prop);
    }
    return made;
}

QString text(int length) {
    return QString(length, u'x');
}
} // namespace

TEST(RecordLimits, EachLimitHoldsUpToItsBoundaryAndNoFurther) {
    // Two blobs of the largest size take 2 x (65471 + 4) bytes; a text of 58 characters, (58 + 1) x 2
    // + 4 more, fills the record to 131072 bytes exactly.
    const QByteArray largest(65471, 'b');
    struct Case {
        const char* what;
        DbRecord record;
        QString reason;
    };
    const Case cases[] = {
        {"note at the limit", record({DbProp::text(1132, text(10000))}), {}},
        {"note over", record({DbProp::text(1132, text(10001))}),
         "property 1132 holds a note of 10001 characters; a note holds at most 10000"},
        {"third aerobic note over", record({DbProp::text(1143, text(10001))}),
         "property 1143 holds a note of 10001 characters; a note holds at most 10000"},
        {"name at the limit", record({DbProp::text(106, text(255))}), {}},
        {"name over", record({DbProp::text(801, text(256))}),
         "property 801 holds a text of 256 characters; a name or other text holds at most 255"},
        {"a number is no note", record({DbProp::i2(1132, 7), DbProp::text(1133, text(256))}),
         "property 1133 holds a text of 256 characters; a name or other text holds at most 255"},
        {"blob at the limit", record({DbProp::blob(5, largest)}), {}},
        {"blob over", record({DbProp::blob(5, largest + 'b')}),
         "property 5 holds 65472 bytes; a property holds at most 65471"},
        {"record at the limit",
         record({DbProp::blob(5, largest), DbProp::blob(6, largest), DbProp::text(7, text(58))}),
         {}},
        {"record over", record({DbProp::blob(5, largest), DbProp::blob(6, largest), DbProp::text(7, text(59))}),
         "a record takes 131074 bytes; a record holds at most 131072"},
        {"a removal takes no room",
         record({DbProp::blob(5, largest), DbProp::blob(6, largest), DbProp::deletion(7, CEVT_BLOB)}),
         {}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(RecordLimits::check(each.record), each.reason) << each.what;
    }
}
