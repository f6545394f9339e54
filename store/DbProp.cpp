#include "DbProp.h"

DbProp DbProp::i2(WORD number, std::int16_t value) { return {number, CEVT_I2, value}; }
DbProp DbProp::ui2(WORD number, WORD value) { return {number, CEVT_UI2, value}; }
DbProp DbProp::i4(WORD number, LONG value) { return {number, CEVT_I4, value}; }
DbProp DbProp::ui4(WORD number, DWORD value) { return {number, CEVT_UI4, value}; }
DbProp DbProp::r8(WORD number, double value) { return {number, CEVT_R8, value}; }
DbProp DbProp::boolean(WORD number, bool value) { return {number, CEVT_BOOL, value}; }
DbProp DbProp::text(WORD number, const QString& value) { return {number, CEVT_LPWSTR, value}; }
DbProp DbProp::fileTime(WORD number, const FILETIME& value) { return {number, CEVT_FILETIME, value}; }
DbProp DbProp::blob(WORD number, const QByteArray& value) { return {number, CEVT_BLOB, value}; }

DbProp DbProp::deletion(WORD number, WORD type) {
    DbProp prop(number, type, std::monostate{});
    prop.m_flags = CEDB_PROPDELETE;
    return prop;
}

DbProp DbProp::fromPropVal(const CEPROPVAL& pv) {
    const WORD number = HIWORD(pv.propid);
    DbProp prop;
    switch (TypeFromPropID(pv.propid)) {
    case CEVT_I2: prop = i2(number, pv.val.iVal); break;
    case CEVT_UI2: prop = ui2(number, pv.val.uiVal); break;
    case CEVT_I4: prop = i4(number, pv.val.lVal); break;
    case CEVT_UI4: prop = ui4(number, pv.val.ulVal); break;
    case CEVT_R8: prop = r8(number, pv.val.dblVal); break;
    case CEVT_BOOL: prop = boolean(number, pv.val.boolVal != FALSE); break;
    case CEVT_LPWSTR: prop = text(number, pv.val.lpwstr); break;
    case CEVT_FILETIME: prop = fileTime(number, pv.val.filetime); break;
    case CEVT_BLOB: prop = blob(number, pv.val.blob); break;
    default: prop = DbProp(number, TypeFromPropID(pv.propid), std::monostate{}); break;
    }
    prop.m_flags = pv.wFlags;
    return prop;
}

CEPROPVAL DbProp::toPropVal() const {
    CEPROPVAL pv;
    pv.propid = id();
    pv.wFlags = m_flags;
    // Each alternative fills the union member its type names.
    std::visit(
        [&pv](const auto& v) {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::int16_t>) pv.val.iVal = v;
            else if constexpr (std::is_same_v<T, WORD>) pv.val.uiVal = v;
            else if constexpr (std::is_same_v<T, LONG>) pv.val.lVal = v;
            else if constexpr (std::is_same_v<T, DWORD>) pv.val.ulVal = v;
            else if constexpr (std::is_same_v<T, double>) pv.val.dblVal = v;
            else if constexpr (std::is_same_v<T, bool>) pv.val.boolVal = v ? TRUE : FALSE;
            else if constexpr (std::is_same_v<T, QString>) pv.val.lpwstr = v;
            else if constexpr (std::is_same_v<T, FILETIME>) pv.val.filetime = v;
            else if constexpr (std::is_same_v<T, QByteArray>) pv.val.blob = v;
        },
        m_value);
    return pv;
}

LONG DbProp::toInt() const {
    if (auto v = std::get_if<std::int16_t>(&m_value)) return *v;
    if (auto v = std::get_if<WORD>(&m_value)) return *v;
    if (auto v = std::get_if<LONG>(&m_value)) return *v;
    if (auto v = std::get_if<DWORD>(&m_value)) return static_cast<LONG>(*v);
    if (auto v = std::get_if<bool>(&m_value)) return *v ? 1 : 0;
    return 0;
}

DWORD DbProp::toUInt() const {
    if (auto v = std::get_if<DWORD>(&m_value)) return *v;
    return static_cast<DWORD>(toInt());
}

double DbProp::toDouble() const {
    if (auto v = std::get_if<double>(&m_value)) return *v;
    return toInt();
}

bool DbProp::toBool() const {
    if (auto v = std::get_if<bool>(&m_value)) return *v;
    return toInt() != 0;
}

QString DbProp::toText() const {
    if (auto v = std::get_if<QString>(&m_value)) return *v;
    return {};
}

FILETIME DbProp::toFileTime() const {
    if (auto v = std::get_if<FILETIME>(&m_value)) return *v;
    return {};
}

QByteArray DbProp::toBlob() const {
    if (auto v = std::get_if<QByteArray>(&m_value)) return *v;
    return {};
}
