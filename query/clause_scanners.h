// The scanners as C++: the names of a clause's items, with identifier delimiters
// stripped.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::query {

enum class ScannedClause {
    Fields,  // each column item's last word (its result name); needs FROM too
    Tables,  // each table item's first word ("OUTER" skipped, aliases dropped); needs SELECT too
    OrderBy, // each sort item's column, with direction marks by the TABRA_SCAN_* flags
};

// The names that are not empty, joined by separator; empty for an empty statement or
// a statement without ORDER BY (sort scan); nullopt when the clause, or the clause the
// column and table scans need besides, is missing. The connection (may be null) gives
// the quote character that keeps quoted names whole.
std::optional<std::u16string> scanClause(SQLHDBC connection, std::u16string_view statement, ScannedClause which,
                                         std::u16string_view separator, uint32_t flags);

} // namespace tabra::query
