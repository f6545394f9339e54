#include "StrengthSet.h"

QString StrengthSet::weightText() const {
    return QString::asprintf("%.1f", weight);
}

QString StrengthSet::intensityText() const {
    return QString::number(intensity);
}

void StrengthSet::readSets(const DbRecord& record, WORD first, std::span<StrengthSet> sets) {
    constexpr int kFields = kIntensityOffset + 1;
    const int count = static_cast<int>(sets.size()) * kFields;
    // Like DbRecord::find, the first property of a number counts when two types share it.
    std::vector<bool> taken(static_cast<size_t>(count), false);
    for (const DbProp& prop : record.props()) {
        const int offset = prop.number() - first;
        if (offset < 0 || offset >= count || taken[static_cast<size_t>(offset)]) {
            continue;
        }
        taken[static_cast<size_t>(offset)] = true;
        StrengthSet& set = sets[static_cast<size_t>(offset / kFields)];
        switch (offset % kFields) {
        case 0:
            set.exercise = prop.toText();
            break;
        case kRepsOffset:
            set.reps = prop.toText();
            break;
        case kWeightOffset:
            set.weight = prop.toDouble();
            break;
        case kRestOffset:
            set.rest = prop.toText();
            break;
        default:
            set.intensity = static_cast<int>(prop.toInt());
            break;
        }
    }
}

void StrengthSet::appendTo(DbRecord& record, WORD first) const {
    record.append(DbProp::text(first, exercise));
    record.append(DbProp::text(first + kRepsOffset, reps));
    record.append(DbProp::r8(first + kWeightOffset, weight));
    record.append(DbProp::text(first + kRestOffset, rest));
    record.append(DbProp::i2(first + kIntensityOffset, static_cast<std::int16_t>(intensity)));
}
