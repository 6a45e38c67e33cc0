// Field lists as C++: the columns of one or more tables as one separated text.
#pragma once

#include <sql.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::catalog {

// Tabra_GetFields: the columns of the tab-separated tables (bare or schema.table) in
// the catalog's order, shaped by the TABRA_FIELDS_* flags and joined by separator, as
// a buffer of capacity characters holds it (an entry that does not fit is skipped, a
// later shorter one may still be written). Empty for no tables; nullopt for a null
// connection or a failure (shown).
std::optional<std::u16string> fieldList(SQLHDBC connection, const char16_t *tables, int32_t flags,
                                        std::u16string_view separator, int32_t capacity);

// Tabra_GetFieldCount: the number of rows the column catalog gives for the table; 2 on
// any failure (shown), which cannot be told from two columns.
int32_t fieldCount(SQLHDBC connection, const char16_t *table);

} // namespace tabra::catalog
