#include "ExerciseGroups.h"

#include "ExerciseLists.h"
#include "NameList.h"

namespace {
constexpr int kChest = 0, kShoulders = 1, kBack = 2, kTriceps = 3, kBiceps = 4, kMisc = 5;
constexpr int kQuads = 0, kHamstrings = 1, kCalves = 2, kAbs = 3;

// The lower-body group of a FitNotes "Legs" exercise.
MuscleGroup legGroup(const QString& name) {
    const std::optional<MuscleGroup> group = ExerciseGroups::byWords(name);
    if (group && group->region() == BodyRegion::Lower && group->index() <= kCalves) {
        return *group;
    }
    return MuscleGroup(BodyRegion::Lower, kQuads);
}
} // namespace

const std::vector<ExerciseGroups::Word>& ExerciseGroups::wordTable() {
    // The most particular words first: "leg curl" before "curl", "calf" before "raise".
    static const std::vector<Word> words = {
        {"calf", BodyRegion::Lower, kCalves},
        {"calves", BodyRegion::Lower, kCalves},
        {"crunch", BodyRegion::Lower, kAbs},
        {"sit up", BodyRegion::Lower, kAbs},
        {"sit-up", BodyRegion::Lower, kAbs},
        {"plank", BodyRegion::Lower, kAbs},
        {"leg raise", BodyRegion::Lower, kAbs},
        {"ab wheel", BodyRegion::Lower, kAbs},
        {"leg curl", BodyRegion::Lower, kHamstrings},
        {"romanian", BodyRegion::Lower, kHamstrings},
        {"straight leg", BodyRegion::Lower, kHamstrings},
        {"stiff leg", BodyRegion::Lower, kHamstrings},
        {"good morning", BodyRegion::Lower, kHamstrings},
        {"hamstring", BodyRegion::Lower, kHamstrings},
        {"lunge", BodyRegion::Lower, kHamstrings},
        {"squat", BodyRegion::Lower, kQuads},
        {"leg press", BodyRegion::Lower, kQuads},
        {"leg extension", BodyRegion::Lower, kQuads},
        {"knee extension", BodyRegion::Lower, kQuads},
        {"step up", BodyRegion::Lower, kQuads},
        {"tricep", BodyRegion::Upper, kTriceps},
        {"pushdown", BodyRegion::Upper, kTriceps},
        {"push down", BodyRegion::Upper, kTriceps},
        {"skull", BodyRegion::Upper, kTriceps},
        {"dip", BodyRegion::Upper, kTriceps},
        {"kickback", BodyRegion::Upper, kTriceps},
        {"curl", BodyRegion::Upper, kBiceps},
        {"bicep", BodyRegion::Upper, kBiceps},
        {"bench", BodyRegion::Upper, kChest},
        {"chest", BodyRegion::Upper, kChest},
        {"fly", BodyRegion::Upper, kChest},
        {"crossover", BodyRegion::Upper, kChest},
        {"push up", BodyRegion::Upper, kChest},
        {"push-up", BodyRegion::Upper, kChest},
        {"pushup", BodyRegion::Upper, kChest},
        {"row", BodyRegion::Upper, kBack},
        {"pulldown", BodyRegion::Upper, kBack},
        {"pull down", BodyRegion::Upper, kBack},
        {"pull up", BodyRegion::Upper, kBack},
        {"pull-up", BodyRegion::Upper, kBack},
        {"pullup", BodyRegion::Upper, kBack},
        {"chin up", BodyRegion::Upper, kBack},
        {"pullover", BodyRegion::Upper, kBack},
        {"deadlift", BodyRegion::Upper, kBack},
        {"shrug", BodyRegion::Upper, kBack},
        {"shoulder", BodyRegion::Upper, kShoulders},
        {"overhead", BodyRegion::Upper, kShoulders},
        {"military", BodyRegion::Upper, kShoulders},
        {"raise", BodyRegion::Upper, kShoulders},
        {"press", BodyRegion::Upper, kChest},
    };
    return words;
}

std::optional<MuscleGroup> ExerciseGroups::byWords(const QString& name) {
    const QString lower = name.toLower();
    for (const Word& word : wordTable()) {
        if (lower.contains(QLatin1String(word.text))) {
            return MuscleGroup(word.region, word.group);
        }
    }
    return std::nullopt;
}

ExerciseGroups::ExerciseGroups() {
    for (BodyRegion region : {BodyRegion::Upper, BodyRegion::Lower}) {
        for (const MuscleGroup& group : MuscleGroup::ofRegion(region)) {
            const NameList list(ExerciseLists::databaseName(group));
            m_lists.emplace_back(group, list.exists() ? list.items().value_or(QStringList())
                                                      : ExerciseLists::defaults(group));
        }
    }
}

MuscleGroup ExerciseGroups::groupOf(const QString& exercise, const QString& category) const {
    for (const auto& [group, names] : m_lists) {
        if (names.contains(exercise)) {
            return group;
        }
    }
    static const std::pair<const char*, MuscleGroup> categories[] = {
        {"chest", MuscleGroup(BodyRegion::Upper, kChest)},       {"shoulders", MuscleGroup(BodyRegion::Upper, kShoulders)},
        {"back", MuscleGroup(BodyRegion::Upper, kBack)},         {"triceps", MuscleGroup(BodyRegion::Upper, kTriceps)},
        {"biceps", MuscleGroup(BodyRegion::Upper, kBiceps)},     {"abs", MuscleGroup(BodyRegion::Lower, kAbs)},
    };
    const QString kind = category.trimmed().toLower();
    for (const auto& [name, group] : categories) {
        if (kind == QLatin1String(name)) {
            return group;
        }
    }
    if (kind == QStringLiteral("legs")) {
        return legGroup(exercise);
    }
    return byWords(exercise).value_or(MuscleGroup(BodyRegion::Upper, kMisc));
}
