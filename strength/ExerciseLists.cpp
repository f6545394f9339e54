#include "ExerciseLists.h"

#include "NameList.h"

namespace {
struct ListEntry {
    const char* name;
    std::array<const char*, 4> defaults; // nullptr: no default
};

using RegionLists = std::array<ListEntry, MuscleGroup::kGroupsPerRegion>;

const RegionLists kUpper = {{
    {"KovChestList", {"Dumbbell Bench Press", "Incline Dumbbell Press", "Dumbbell Flyes", "Barbell Bench Press"}},
    {"KovShldrList", {"Seated Dumbbell Press", "Standing Barbell Press", "Side Raises", "Bent Over Raises"}},
    {"KovBackList", {"Wide Grip Pulldowns", "One Arm Rows", "Reverse Grip Pulldowns", "Dumbbell Pullovers"}},
    {"KovTricepsList", {"Dumbbell Extensions", "Close Grip Pushdowns", "Bench Dips", "Lying Dumbbell Extensions"}},
    {"KovBicepsList", {"Incline Dumbbell Curls", "Seated Dumbbell Curls", "Standing Barbell Curls", "Hammer Curls"}},
    {"MiscUpperList", {}},
}};

const RegionLists kLower = {{
    {"KovQuadsList", {"Barbell Squats", "Knee Extensions", "Leg Press", "Dumbbell Squats"}},
    {"KovHamstringsList", {"Dumbbell Lunges", "Standing Leg Curls", "Lying Leg Curls", "Straight Leg Deadlifts"}},
    {"KovCalvesList", {"Seated Calf Raises", "Standing Calf Raises", "One Leg Calf Raise", "Angled Calf Raise"}},
    {"KovAbsList", {"Floor Crunches", "Twist Crunches", "Decline Sit Ups", "Bent Knee Leg Raises"}},
    {"MiscLower1List", {}},
    {"MiscLower2List", {}},
}};

const ListEntry& entryOf(const MuscleGroup& group) {
    const RegionLists& lists = group.region() == BodyRegion::Upper ? kUpper : kLower;
    return lists[static_cast<size_t>(group.index())];
}
} // namespace

QString ExerciseLists::databaseName(const MuscleGroup& group) {
    return QString::fromLatin1(entryOf(group).name);
}

QStringList ExerciseLists::defaults(const MuscleGroup& group) {
    QStringList items;
    for (const char* item : entryOf(group).defaults) {
        if (item != nullptr) {
            items << QString::fromLatin1(item);
        }
    }
    return items;
}

QStringList ExerciseLists::databaseNames() {
    QStringList names;
    for (BodyRegion region : {BodyRegion::Upper, BodyRegion::Lower}) {
        for (const MuscleGroup& group : MuscleGroup::ofRegion(region)) {
            names << databaseName(group);
        }
    }
    return names;
}

std::optional<QStringList> ExerciseLists::load(const MuscleGroup& group) {
    const NameList list(databaseName(group));
    if (!list.ensureExists(defaults(group))) {
        return std::nullopt;
    }
    return list.items();
}
