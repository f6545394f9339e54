#include "StrengthScreenTest.h"

#include "StrengthRecords.h"

void StrengthScreenTest::writeSets(const QDate& day, const MuscleGroup& group, const QList<StrengthSet>& sets) {
    const bool upper = group.region() == BodyRegion::Upper;
    const StrengthRecords records(upper ? main().upperBodyADatabaseName() : main().lowerBodyADatabaseName(),
                                  upper ? main().upperBodyBDatabaseName() : main().lowerBodyBDatabaseName());
    ASSERT_TRUE(records.EnsureDatabases());
    ASSERT_TRUE(records.EnsureDay(day));
    GroupSets rows;
    for (int row = 0; row < sets.size(); ++row) {
        rows.at(row) = sets[row];
    }
    ASSERT_TRUE(records.WriteGroup(day, group, rows));
}
