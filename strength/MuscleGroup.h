#pragma once
// One muscle group of a body region: its code (1101-1106 upper, 1201-1206 lower, in menu order),
// its name, the database of the region's pair that holds its sets, and its block of property numbers.
// Group g owns numbers 106 + 100g to 205 + 100g; set k (0-11) starts at 106 + 100g + 5k, and only the
// first 60 numbers of the block are ever used.

#include "BodyRegion.h"
#include "DatabaseCatalogue.h"

#include <QString>

#include <array>
#include <optional>

class MuscleGroup {
public:
    static constexpr int kGroupsPerRegion = 6;
    static constexpr int kSets = 12;
    static constexpr int kPropsPerSet = 5;
    static constexpr int kPropsPerGroup = kSets * kPropsPerSet;
    // Groups 0 and 1 are kept in the A database; from group 2 (number 306) on, in the B database.
    static constexpr int kFirstGroupOfB = 2;
    static constexpr WORD kFirstNumberOfB = 306;

    // index 0-5; anything else is clamped into range.
    MuscleGroup(BodyRegion region, int index);
    // The group of a code, std::nullopt for a code outside 1101-1106 and 1201-1206.
    static std::optional<MuscleGroup> fromCode(int code);
    static std::array<MuscleGroup, kGroupsPerRegion> ofRegion(BodyRegion region);

    BodyRegion region() const { return m_region; }
    int index() const { return m_index; }
    int code() const;
    // "Chest", ..., "Misc 2", as the group menus show them.
    QString name() const;
    bool inDatabaseA() const { return m_index < kFirstGroupOfB; }
    // The user database holding the group's sets (UpperA, UpperB, LowerA or LowerB).
    UserDatabase database() const;
    static UserDatabase databaseA(BodyRegion region);
    static UserDatabase databaseB(BodyRegion region);

    // The first property number of set (0-11); the set's five properties follow it.
    WORD setNumber(int set) const { return static_cast<WORD>(firstNumber() + kPropsPerSet * set); }
    WORD firstNumber() const { return static_cast<WORD>(106 + 100 * m_index); }
    // True for the group's 60 property numbers.
    bool ownsNumber(WORD number) const { return number >= firstNumber() && number < firstNumber() + kPropsPerGroup; }

    friend bool operator==(const MuscleGroup&, const MuscleGroup&) = default;

private:
    BodyRegion m_region;
    int m_index;
};
