#include "StrengthSet.h"

namespace {
QString textAt(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop != nullptr ? prop->toText() : QString();
}
} // namespace

QString StrengthSet::weightText() const {
    return QString::asprintf("%.1f", weight);
}

QString StrengthSet::intensityText() const {
    return QString::number(intensity);
}

StrengthSet StrengthSet::fromRecord(const DbRecord& record, WORD first) {
    StrengthSet set;
    set.exercise = textAt(record, first);
    set.reps = textAt(record, first + kRepsOffset);
    if (const DbProp* weight = record.find(first + kWeightOffset)) {
        set.weight = weight->toDouble();
    }
    set.rest = textAt(record, first + kRestOffset);
    if (const DbProp* intensity = record.find(first + kIntensityOffset)) {
        set.intensity = intensity->toInt();
    }
    return set;
}

void StrengthSet::appendTo(DbRecord& record, WORD first) const {
    record.append(DbProp::text(first, exercise));
    record.append(DbProp::text(first + kRepsOffset, reps));
    record.append(DbProp::r8(first + kWeightOffset, weight));
    record.append(DbProp::text(first + kRestOffset, rest));
    record.append(DbProp::i2(first + kIntensityOffset, static_cast<std::int16_t>(intensity)));
}
