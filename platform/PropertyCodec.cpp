#include "PropertyCodec.h"

#include <cmath>
#include <limits>

namespace {
std::int64_t integerOf(const CEPROPVAL& value) {
    switch (TypeFromPropID(value.propid)) {
    case CEVT_I2:
        return value.val.iVal;
    case CEVT_UI2:
        return value.val.uiVal;
    case CEVT_I4:
        return value.val.lVal;
    case CEVT_UI4:
        return value.val.ulVal;
    case CEVT_BOOL:
        return value.val.boolVal;
    default: // CEVT_FILETIME
        return static_cast<std::int64_t>(fileTimeTicks(value.val.filetime));
    }
}

bool isIntegerType(WORD type) {
    return type == CEVT_I2 || type == CEVT_UI2 || type == CEVT_I4 || type == CEVT_UI4 || type == CEVT_BOOL ||
           type == CEVT_FILETIME;
}

template <typename T> bool fits(std::int64_t number) {
    return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

DWORD readInteger(std::int64_t number, WORD type, CEVALUNION* out) {
    switch (type) {
    case CEVT_I2:
        out->iVal = static_cast<std::int16_t>(number);
        return fits<std::int16_t>(number) ? ERROR_SUCCESS : ERROR_INVALID_DATA;
    case CEVT_UI2:
        out->uiVal = static_cast<WORD>(number);
        return fits<WORD>(number) ? ERROR_SUCCESS : ERROR_INVALID_DATA;
    case CEVT_I4:
        out->lVal = static_cast<LONG>(number);
        return fits<LONG>(number) ? ERROR_SUCCESS : ERROR_INVALID_DATA;
    case CEVT_UI4:
        out->ulVal = static_cast<DWORD>(number);
        return fits<DWORD>(number) ? ERROR_SUCCESS : ERROR_INVALID_DATA;
    case CEVT_BOOL:
        out->boolVal = static_cast<BOOL>(number);
        return fits<BOOL>(number) ? ERROR_SUCCESS : ERROR_INVALID_DATA;
    default: // CEVT_FILETIME
        out->filetime = fileTimeFromTicks(static_cast<std::uint64_t>(number));
        return ERROR_SUCCESS;
    }
}
} // namespace

bool PropertyCodec::isKnownType(WORD type) {
    return isIntegerType(type) || type == CEVT_R8 || type == CEVT_LPWSTR || type == CEVT_BLOB;
}

DWORD PropertyCodec::check(const CEPROPVAL& value) {
    const WORD type = TypeFromPropID(value.propid);
    if (!isKnownType(type) || (type == CEVT_R8 && std::isnan(value.val.dblVal))) {
        return ERROR_INVALID_PARAMETER;
    }
    return ERROR_SUCCESS;
}

void PropertyCodec::bind(sqlite3_stmt* stmt, int index, const CEPROPVAL& value) {
    const WORD type = TypeFromPropID(value.propid);
    if (type == CEVT_R8) {
        sqlite3_bind_double(stmt, index, value.val.dblVal);
    } else if (type == CEVT_LPWSTR) {
        static const char16_t empty = 0;
        const QString& text = value.val.lpwstr;
        sqlite3_bind_text16(stmt, index, text.isEmpty() ? static_cast<const void*>(&empty) : text.utf16(),
                            static_cast<int>(text.size() * 2), SQLITE_STATIC);
    } else if (type == CEVT_BLOB) {
        const QByteArray& bytes = value.val.blob;
        if (bytes.isEmpty()) {
            sqlite3_bind_zeroblob(stmt, index, 0);
        } else {
            sqlite3_bind_blob(stmt, index, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_STATIC);
        }
    } else {
        sqlite3_bind_int64(stmt, index, integerOf(value));
    }
}

SortKey PropertyCodec::sortKeyOf(const CEPROPVAL& value) {
    const WORD type = TypeFromPropID(value.propid);
    if (type == CEVT_R8) {
        return SortKey(value.val.dblVal);
    }
    if (type == CEVT_LPWSTR) {
        const QByteArray utf8 = value.val.lpwstr.toUtf8();
        return SortKey(SortKey::Text{std::string(utf8.constData(), utf8.size())});
    }
    if (type == CEVT_BLOB) {
        return SortKey(SortKey::Blob{std::string(value.val.blob.constData(), value.val.blob.size())});
    }
    return SortKey(integerOf(value));
}

DWORD PropertyCodec::read(sqlite3_stmt* stmt, int column, CEPROPID propid, CEVALUNION* out) {
    const WORD type = TypeFromPropID(propid);
    const int stored = sqlite3_column_type(stmt, column);
    if (isIntegerType(type)) {
        return stored == SQLITE_INTEGER ? readInteger(sqlite3_column_int64(stmt, column), type, out)
                                        : ERROR_INVALID_DATA;
    }
    if (type == CEVT_R8) {
        // A whole number written as an integer by hand still reads as the number it is.
        if (stored != SQLITE_FLOAT && stored != SQLITE_INTEGER) {
            return ERROR_INVALID_DATA;
        }
        out->dblVal = sqlite3_column_double(stmt, column);
        return ERROR_SUCCESS;
    }
    if (type == CEVT_LPWSTR && stored == SQLITE_TEXT) {
        // Straight from the stored UTF-8: asking SQLite for UTF-16 would convert twice.
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, column));
        const int bytes = sqlite3_column_bytes(stmt, column);
        out->lpwstr = text != nullptr ? QString::fromUtf8(text, bytes) : QString();
        return ERROR_SUCCESS;
    }
    if (type == CEVT_BLOB && stored == SQLITE_BLOB) {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(stmt, column));
        const int size = sqlite3_column_bytes(stmt, column);
        out->blob = bytes != nullptr ? QByteArray(bytes, size) : QByteArray();
        return ERROR_SUCCESS;
    }
    return ERROR_INVALID_DATA;
}

bool PropertyCodec::isReadable(sqlite3_stmt* stmt, int column, CEPROPID propid) {
    const WORD type = TypeFromPropID(propid);
    const int stored = sqlite3_column_type(stmt, column);
    if (isIntegerType(type)) {
        CEVALUNION ignored;
        return stored == SQLITE_INTEGER &&
               readInteger(sqlite3_column_int64(stmt, column), type, &ignored) == ERROR_SUCCESS;
    }
    switch (type) {
    case CEVT_R8:
        return stored == SQLITE_FLOAT || stored == SQLITE_INTEGER;
    case CEVT_LPWSTR:
        return stored == SQLITE_TEXT;
    case CEVT_BLOB:
        return stored == SQLITE_BLOB;
    default:
        return false;
    }
}
