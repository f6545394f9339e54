#pragma once
// One typed property of a record: its number, its type (a CEVT_ code), flags, and a value.

#include "CeDatabase.h"

#include <QByteArray>
#include <QString>

#include <variant>

class DbProp {
public:
    DbProp() = default;

    static DbProp i2(WORD number, std::int16_t value);
    static DbProp ui2(WORD number, WORD value);
    static DbProp i4(WORD number, LONG value);
    static DbProp ui4(WORD number, DWORD value);
    static DbProp r8(WORD number, double value);
    static DbProp boolean(WORD number, bool value);
    static DbProp text(WORD number, const QString& value);
    static DbProp fileTime(WORD number, const FILETIME& value);
    static DbProp blob(WORD number, const QByteArray& value);
    // A property to be removed from the record when written.
    static DbProp deletion(WORD number, WORD type);

    static DbProp fromPropVal(const CEPROPVAL& value);
    CEPROPVAL toPropVal() const;

    WORD number() const { return m_number; }
    // The same type and value under another number (a value moved within a record).
    DbProp renumbered(WORD number) const {
        DbProp moved = *this;
        moved.m_number = number;
        return moved;
    }
    WORD type() const { return m_type; }
    CEPROPID id() const { return PROP_TAG(m_type, m_number); }
    WORD flags() const { return m_flags; }
    bool isDeletion() const { return (m_flags & CEDB_PROPDELETE) != 0; }

    // The value read as the named kind. An integer of any width reads through toInt; a property
    // of another type reads as 0, false or empty.
    LONG toInt() const;
    DWORD toUInt() const;
    double toDouble() const;
    bool toBool() const;
    QString toText() const;
    FILETIME toFileTime() const;
    QByteArray toBlob() const;

    friend bool operator==(const DbProp&, const DbProp&) = default;

private:
    using Value =
        std::variant<std::monostate, std::int16_t, WORD, LONG, DWORD, double, bool, QString, FILETIME, QByteArray>;
    DbProp(WORD number, WORD type, Value value) : m_number(number), m_type(type), m_value(std::move(value)) {}

    WORD m_number = 0;
    WORD m_type = 0;
    WORD m_flags = 0;
    Value m_value;
};
