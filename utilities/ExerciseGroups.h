#pragma once
// Which muscle group an exercise of another program's export goes to, in this order:
//  1. the group whose exercise list holds exactly that name ("Leg Press": Quads);
//  2. FitNotes' own category (Chest, Shoulders, Back, Triceps, Biceps, Abs; Legs split by the name
//     into Quads, Hamstrings or Calves, Quads when unsure);
//  3. the first word of the word table found in the name (docs/decisions.md lists it);
//  4. else the upper body's Misc group.
// The lists are read once, as they stand before the import (their defaults when one is missing).

#include "MuscleGroup.h"

#include <QString>

#include <vector>

class ExerciseGroups {
public:
    // One line of the word table: a word (or words) of an exercise's name and its group.
    struct Word {
        const char* text;
        BodyRegion region;
        int group;
    };
    static const std::vector<Word>& wordTable();

    ExerciseGroups();
    MuscleGroup groupOf(const QString& exercise, const QString& category = QString()) const;

    // The group of the word table for name, if any word of it is in the name.
    static std::optional<MuscleGroup> byWords(const QString& name);

private:
    std::vector<std::pair<MuscleGroup, QStringList>> m_lists;
};
