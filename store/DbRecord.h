#pragma once
// The properties of one record, as read or to be written, in order.

#include "DbProp.h"

#include <vector>

class DbRecord {
public:
    void clear() { m_props.clear(); }
    void append(const DbProp& prop) { m_props.push_back(prop); }
    bool isEmpty() const { return m_props.empty(); }
    int size() const { return static_cast<int>(m_props.size()); }
    const std::vector<DbProp>& props() const { return m_props; }

    // The first property with this number (of whatever type), or nullptr when the record lacks it.
    const DbProp* find(WORD number) const;

    // What to write into the record stored holds so that each of these properties replaces whatever
    // its number holds there: these properties, then the removal of every property of stored that has
    // one of their numbers under another type (a property is named by number and type together).
    DbRecord replacing(const DbRecord& stored) const;

    std::vector<CEPROPVAL> toPropVals() const;
    static DbRecord fromPropVals(const std::vector<CEPROPVAL>& values);

private:
    std::vector<DbProp> m_props;
};
