#pragma once
// The words the generated logs are made of: exercise names per muscle group, food items, aerobic
// exercises and courses, and a few notes. The strength and food names are the programs' default
// list items, so that a generated device looks like one that has been used for years.

#include <QStringList>

class SampleVocabulary {
public:
    // Exercise names of an upper-body (upper true) or lower-body muscle group 0-5.
    static const QStringList& exercises(bool upper, int group);
    static const QStringList& proteins();
    static const QStringList& carbohydrates();
    static const QStringList& vegetables();
    // Supplements; the empty text stands for a meal without one.
    static const QStringList& supplements();
    static const QStringList& aerobicExercises();
    static const QStringList& courses();
    static const QStringList& notes();
    // The numbers "0" to "20" as text (reps and rest are stored as typed).
    static const QStringList& numbers();
};
