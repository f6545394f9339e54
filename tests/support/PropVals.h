#pragma once
// Property values as a caller of the property-database service builds them.

#include "CeDatabase.h"

inline CEPROPVAL i4(WORD number, LONG value) {
    CEPROPVAL prop;
    prop.propid = PROP_TAG(CEVT_I4, number);
    prop.val.lVal = value;
    return prop;
}

inline CEPROPVAL text(WORD number, const QString& value) {
    CEPROPVAL prop;
    prop.propid = PROP_TAG(CEVT_LPWSTR, number);
    prop.val.lpwstr = value;
    return prop;
}
