#include "StrengthScreenTest.h"

#include "Clock.h"
#include "StrengthRecords.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

StrengthScreenTest::StrengthScreenTest() {
    Clock::setFixed(kNow);
}

StrengthScreenTest::~StrengthScreenTest() {
    Clock::setFixed(std::nullopt);
}

StrengthLogPage& StrengthScreenTest::showPage(BodyRegion region) {
    if (!m_screen) {
        start(false, &m_pages);
    }
    main().SelectPage(region == BodyRegion::Upper ? 1 : 2);
    return page(region);
}

StrengthLogPage& StrengthScreenTest::page(BodyRegion region) const {
    return *static_cast<StrengthLogPage*>(m_screen->mainDialog().page(region == BodyRegion::Upper ? 1 : 2));
}

SetGrid& StrengthScreenTest::grid() const {
    return *static_cast<SetGrid*>(m_screen->mainDialog().setGrid());
}

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
