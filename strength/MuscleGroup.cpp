#include "MuscleGroup.h"

#include <QtGlobal>

namespace {
constexpr int kUpperFirstCode = 1101;
constexpr int kLowerFirstCode = 1201;

const std::array<const char*, MuscleGroup::kGroupsPerRegion> kUpperNames = {"Chest",   "Shoulders", "Back",
                                                                            "Triceps", "Biceps",    "Misc"};
const std::array<const char*, MuscleGroup::kGroupsPerRegion> kLowerNames = {"Quads", "Hamstrings", "Calves",
                                                                            "Abs",   "Misc 1",     "Misc 2"};
} // namespace

MuscleGroup::MuscleGroup(BodyRegion region, int index)
    : m_region(region), m_index(qBound(0, index, kGroupsPerRegion - 1)) {}

std::optional<MuscleGroup> MuscleGroup::fromCode(int code) {
    // A code below 1200 is an upper-body group.
    const BodyRegion region = code < 1200 ? BodyRegion::Upper : BodyRegion::Lower;
    const int index = code - (region == BodyRegion::Upper ? kUpperFirstCode : kLowerFirstCode);
    if (index < 0 || index >= kGroupsPerRegion) {
        return std::nullopt;
    }
    return MuscleGroup(region, index);
}

std::array<MuscleGroup, MuscleGroup::kGroupsPerRegion> MuscleGroup::ofRegion(BodyRegion region) {
    return {MuscleGroup(region, 0), MuscleGroup(region, 1), MuscleGroup(region, 2),
            MuscleGroup(region, 3), MuscleGroup(region, 4), MuscleGroup(region, 5)};
}

int MuscleGroup::code() const {
    return (m_region == BodyRegion::Upper ? kUpperFirstCode : kLowerFirstCode) + m_index;
}

QString MuscleGroup::name() const {
    const auto& names = m_region == BodyRegion::Upper ? kUpperNames : kLowerNames;
    return QString::fromLatin1(names[static_cast<size_t>(m_index)]);
}

UserDatabase MuscleGroup::database() const {
    return inDatabaseA() ? databaseA(m_region) : databaseB(m_region);
}

UserDatabase MuscleGroup::databaseA(BodyRegion region) {
    return region == BodyRegion::Upper ? UserDatabase::UpperA : UserDatabase::LowerA;
}

UserDatabase MuscleGroup::databaseB(BodyRegion region) {
    return region == BodyRegion::Upper ? UserDatabase::UpperB : UserDatabase::LowerB;
}
