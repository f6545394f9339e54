#include "RecordEntries.h"

#include "DayKey.h"
#include "NotesPlaceholder.h"

namespace {
// What a property's value means to the pages that show it.
enum class Field {
    Unshown, // not shown (the key, the start time, a set's values without its exercise name)
    Name,    // text: an entry when not empty
    Notes,   // text: an entry unless empty, blank or the placeholder
    Number,  // an entry when not zero
    Rating,  // a chosen rating: an entry unless zero or "no choice" (the all-ones 16-bit value)
    Meal,    // a meal's time: its presence is the meal
};

// Header properties a strength A record and an aerobic record share (exercise 1's header).
constexpr WORD kElapsedMinutes = 104;
constexpr WORD kCompleted = 105;
constexpr WORD kNotes = 1132;
constexpr WORD kElapsedSeconds = 1133;

Field strengthField(WORD number) {
    switch (number) {
    case kElapsedMinutes:
    case kCompleted:
    case kElapsedSeconds:
        return Field::Number;
    case kNotes:
        return Field::Notes;
    default:
        break;
    }
    // Set k of group g has its exercise name at 106 + 100g + 5k (k = 0..11): the set counts by it.
    if (number >= 106 && number <= 705) {
        const int offset = (number - 106) % 100;
        return offset < 60 && offset % 5 == 0 ? Field::Name : Field::Unshown;
    }
    return Field::Unshown;
}

Field aerobicField(WORD number) {
    // Exercises 1, 2 and 3: name, 20 intensities, distance, heart rate and course at 701.., 801.., 901...
    if (number >= 701 && number <= 924 && number % 100 >= 1 && number % 100 <= 24) {
        const int field = number % 100;
        return field == 1 || field == 24 ? Field::Name : Field::Number;
    }
    switch (number) {
    case kElapsedMinutes:
    case 1140:
    case 1141:
    case kCompleted:
    case 1144:
    case 1145:
    case kElapsedSeconds:
    case 1134:
    case 1135:
        return Field::Number;
    case kNotes:
    case 1142:
    case 1143:
        return Field::Notes;
    default:
        return Field::Unshown;
    }
}

Field foodField(WORD number) {
    // Fifteen meals of six ids from 1010; the time (the first) marks a slot as used.
    if (number >= 1010 && number <= 1099) {
        return (number - 1010) % 6 == 0 ? Field::Meal : Field::Unshown;
    }
    switch (number) {
    case 1001: // water
    case 1002: // weight
    case 1003: // body fat
    case 1146: // waist
    case 1147: // sleep
    case 1148: // quads
    case 1149: // calves
    case 1150: // biceps
    case 1151: // chest
    case 1154: // systolic
    case 1155: // diastolic
    case 1156: // resting heart rate
        return Field::Number;
    case 1152: // overall feeling
    case 1153: // sleep quality
        return Field::Rating;
    case kNotes:
        return Field::Notes;
    default:
        return Field::Unshown;
    }
}

bool isNumberSet(const DbProp& prop) {
    switch (prop.type()) {
    case CEVT_R8:
        return prop.toDouble() != 0.0;
    case CEVT_LPWSTR:
        return !prop.toText().trimmed().isEmpty();
    case CEVT_BLOB:
        return !prop.toBlob().isEmpty();
    case CEVT_FILETIME:
        return fileTimeTicks(prop.toFileTime()) != 0;
    default:
        return prop.toUInt() != 0;
    }
}

bool isEntry(Field field, const DbProp& prop) {
    switch (field) {
    case Field::Unshown:
        return false;
    case Field::Name:
        return !prop.toText().isEmpty();
    case Field::Notes: {
        const QString notes = prop.toText();
        return !notes.trimmed().isEmpty() && notes != kNotesPlaceholder;
    }
    case Field::Number:
        return isNumberSet(prop);
    case Field::Rating: {
        const DWORD value = prop.toUInt() & 0xFFFF;
        return value != 0 && value != 0xFFFF;
    }
    case Field::Meal:
        return true;
    }
    return false;
}
} // namespace

bool RecordEntries::holdsEntry(LogKind kind, const DbRecord& record) {
    for (const DbProp& prop : record.props()) {
        Field field = Field::Unshown;
        switch (kind) {
        case LogKind::Strength:
            field = strengthField(prop.number());
            break;
        case LogKind::Aerobic:
            field = aerobicField(prop.number());
            break;
        case LogKind::Food:
            field = foodField(prop.number());
            break;
        }
        if (isEntry(field, prop)) {
            return true;
        }
    }
    return false;
}

bool RecordEntries::isMarker(const DbRecord& record) {
    const DbProp* key = record.find(DayKey::kNumber);
    return key != nullptr && key->type() == CEVT_FILETIME && key->toFileTime() == DayKey::referenceDay();
}
