#include "GroupSets.h"

void GroupSets::clearAll() {
    clearFrom(0);
}

void GroupSets::clearRow(int row) {
    if (row >= 0 && row < kRows) {
        at(row) = StrengthSet();
    }
}

void GroupSets::clearFrom(int row) {
    for (int r = qMax(row, 0); r < kRows; ++r) {
        at(r) = StrengthSet();
    }
}

void GroupSets::fillIn(const QString& exercise, const QString& replaced) {
    for (int row = 1; row < kFillInRows; ++row) {
        QString& current = at(row).exercise;
        if (current.isEmpty() || current == replaced) {
            current = exercise;
        }
    }
}

GroupSets GroupSets::fromRecord(const DbRecord& record, const MuscleGroup& group) {
    GroupSets sets;
    StrengthSet::readSets(record, group.firstNumber(), sets.m_rows);
    return sets;
}

bool GroupSets::holdsGroup(const DbRecord& record, const MuscleGroup& group) {
    for (const DbProp& prop : record.props()) {
        if (group.ownsNumber(prop.number())) {
            return true;
        }
    }
    return false;
}

DbRecord GroupSets::toRecord(const MuscleGroup& group) const {
    DbRecord record;
    for (int row = 0; row < kRows; ++row) {
        at(row).appendTo(record, group.setNumber(row));
    }
    return record;
}
