#pragma once
// The twelve exercise-type lists, one name-list database per muscle group, shared by all users.
// A list is created on first use; the nine named groups' lists start with four default exercises,
// the three Misc lists start empty.

#include "MuscleGroup.h"

#include <QStringList>

#include <optional>

class ExerciseLists {
public:
    // What the set-entry grid shows for a group code outside the table.
    static inline const QString kUnknownTypeText = QStringLiteral("Error finding exercise type");

    // "KovChestList", ..., "MiscLower2List".
    static QString databaseName(const MuscleGroup& group);
    // The group's default exercises, in the order they are added.
    static QStringList defaults(const MuscleGroup& group);
    // The twelve list names, upper body first, in code order.
    static QStringList databaseNames();

    // Creates the group's list with its defaults when missing, then reads its exercises in the
    // list's order; std::nullopt when it cannot be created or read.
    static std::optional<QStringList> load(const MuscleGroup& group);
};
