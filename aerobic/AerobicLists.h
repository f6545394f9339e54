#pragma once
// The two pick-lists of the aerobic page, shared by all users: the aerobic exercises and the
// courses. The exercise list starts with a few common exercises; the course list starts empty, as
// courses are the person's own.

#include <QStringList>

class AerobicLists {
public:
    static inline const QString kExercises = QStringLiteral("KovAerobicList");
    static inline const QString kCourses = QStringLiteral("KovCourseList");

    static QStringList defaultExercises();
    // Creates the list when missing (the exercises with their defaults), then reads its items; an
    // empty list when it cannot be read.
    static QStringList load(const QString& databaseName);
};
