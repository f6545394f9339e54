#include "DbRecord.h"

const DbProp* DbRecord::find(WORD number) const {
    for (const DbProp& prop : m_props) {
        if (prop.number() == number) {
            return &prop;
        }
    }
    return nullptr;
}

DbRecord DbRecord::replacing(const DbRecord& stored) const {
    DbRecord write = *this;
    for (const DbProp& old : stored.m_props) {
        const DbProp* mine = find(old.number());
        if (mine != nullptr && mine->type() != old.type()) {
            write.append(DbProp::deletion(old.number(), old.type()));
        }
    }
    return write;
}

std::vector<CEPROPVAL> DbRecord::toPropVals() const {
    std::vector<CEPROPVAL> values;
    values.reserve(m_props.size());
    for (const DbProp& prop : m_props) {
        values.push_back(prop.toPropVal());
    }
    return values;
}

DbRecord DbRecord::fromPropVals(const std::vector<CEPROPVAL>& values) {
    DbRecord record;
    record.m_props.reserve(values.size());
    for (const CEPROPVAL& value : values) {
        record.m_props.push_back(DbProp::fromPropVal(value));
    }
    return record;
}
