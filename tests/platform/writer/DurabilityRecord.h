#pragma once
// The records the durability writer writes: every property is derived from one seed (property 1),
// so a record that was written only in part, or mixes two writes, shows as not whole.

#include "CeDatabase.h"

#include <vector>

namespace DurabilityRecord {
inline const QString kDatabase = QStringLiteral("Durability");
constexpr CEPROPID kSeed = PROP_TAG(CEVT_UI4, 1);

inline std::vector<CEPROPVAL> make(DWORD seed) {
    std::vector<CEPROPVAL> props(23);
    props[0].propid = kSeed;
    props[0].val.ulVal = seed;
    for (WORD i = 1; i <= 20; ++i) {
        props[i].propid = PROP_TAG(CEVT_I4, static_cast<WORD>(i + 1));
        props[i].val.lVal = static_cast<LONG>(seed * (i + 1u));
    }
    props[21].propid = PROP_TAG(CEVT_LPWSTR, 30);
    props[21].val.lpwstr = QStringLiteral("record %1 ").arg(seed).repeated(20);
    // Over a page of bytes, so that one record spans several pages of the file.
    props[22].propid = PROP_TAG(CEVT_BLOB, 31);
    props[22].val.blob.resize(5000);
    for (int i = 0; i < props[22].val.blob.size(); ++i) {
        props[22].val.blob[i] = static_cast<char>((seed >> (i % 24)) + i);
    }
    return props;
}

// True when props are exactly what make() gives for the seed they hold.
inline bool isWhole(const std::vector<CEPROPVAL>& props) {
    if (props.size() != 23 || props[0].propid != kSeed) {
        return false;
    }
    const std::vector<CEPROPVAL> expected = make(props[0].val.ulVal);
    for (size_t i = 1; i < props.size(); ++i) {
        const CEVALUNION& a = props[i].val;
        const CEVALUNION& b = expected[i].val;
        if (props[i].propid != expected[i].propid || a.lVal != b.lVal || a.lpwstr != b.lpwstr || a.blob != b.blob) {
            return false;
        }
    }
    return true;
}
} // namespace DurabilityRecord
