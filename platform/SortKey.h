#pragma once
// A record's value of its database's sort property as the records table holds it (the sort_key
// column): NULL when the record lacks the property, else an integer, a real, a text (UTF-8) or a blob.

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <variant>

class SortKey {
public:
    struct Text {
        std::string utf8;
        friend bool operator==(const Text&, const Text&) = default;
    };
    struct Blob {
        std::string bytes;
        friend bool operator==(const Blob&, const Blob&) = default;
    };
    using Value = std::variant<std::monostate, std::int64_t, double, Text, Blob>;

    SortKey() = default;
    explicit SortKey(Value value) : m_value(std::move(value)) {}
    static SortKey fromColumn(sqlite3_stmt* stmt, int column);

    bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }
    const Value& value() const { return m_value; }
    void bind(sqlite3_stmt* stmt, int index) const;

    // Equal as SQLite compares them: an integer and a real compare by number, other kinds only
    // with their own kind.
    friend bool operator==(const SortKey& a, const SortKey& b);

private:
    Value m_value;
};
