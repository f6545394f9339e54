#include "SortKey.h"

SortKey SortKey::fromColumn(sqlite3_stmt* stmt, int column) {
    switch (sqlite3_column_type(stmt, column)) {
    case SQLITE_INTEGER:
        return SortKey(sqlite3_column_int64(stmt, column));
    case SQLITE_FLOAT:
        return SortKey(sqlite3_column_double(stmt, column));
    case SQLITE_TEXT: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, column));
        const int size = sqlite3_column_bytes(stmt, column);
        return SortKey(Text{text != nullptr ? std::string(text, size) : std::string()});
    }
    case SQLITE_BLOB: {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(stmt, column));
        const int size = sqlite3_column_bytes(stmt, column);
        return SortKey(Blob{bytes != nullptr ? std::string(bytes, size) : std::string()});
    }
    default:
        return SortKey();
    }
}

void SortKey::bind(sqlite3_stmt* stmt, int index) const {
    if (const auto* number = std::get_if<std::int64_t>(&m_value)) {
        sqlite3_bind_int64(stmt, index, *number);
    } else if (const auto* real = std::get_if<double>(&m_value)) {
        sqlite3_bind_double(stmt, index, *real);
    } else if (const auto* text = std::get_if<Text>(&m_value)) {
        sqlite3_bind_text(stmt, index, text->utf8.data(), static_cast<int>(text->utf8.size()), SQLITE_STATIC);
    } else if (const auto* blob = std::get_if<Blob>(&m_value)) {
        // A null pointer would bind NULL: an empty blob must stay a blob.
        sqlite3_bind_zeroblob(stmt, index, 0);
        if (!blob->bytes.empty()) {
            sqlite3_bind_blob(stmt, index, blob->bytes.data(), static_cast<int>(blob->bytes.size()), SQLITE_STATIC);
        }
    } else {
        sqlite3_bind_null(stmt, index);
    }
}

namespace {
bool isNumber(const SortKey::Value& v) {
    return std::holds_alternative<std::int64_t>(v) || std::holds_alternative<double>(v);
}

long double numberOf(const SortKey::Value& v) {
    if (const auto* number = std::get_if<std::int64_t>(&v)) {
        return static_cast<long double>(*number);
    }
    return std::get<double>(v);
}
} // namespace

bool operator==(const SortKey& a, const SortKey& b) {
    if (a.m_value.index() == b.m_value.index()) {
        return a.m_value == b.m_value;
    }
    return isNumber(a.m_value) && isNumber(b.m_value) && numberOf(a.m_value) == numberOf(b.m_value);
}
