// Table lists as C++: the one place that asks the catalog for table names. A list is
// one flat text of names joined by a separator, as a buffer of the given capacity
// holds it; a list that does not fit ends at the last entry that did.
#pragma once

#include <sql.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::catalog {

// Tabra_GetTablesExtended: tables of the type flags (bookkeeping tables only with
// TABRA_TABLE_TYPE_SYSTEM_TABLE), limited to a schema that is not blank, with
// TABRA_QUALIFY_SCHEMA as schema.table where the driver knows schemas. nullopt after
// an ODBC failure (shown).
std::optional<std::u16string> tableList(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                        uint8_t qualify, int32_t capacity, std::u16string_view separator);

// OdbcEh_GetTablesExtended: bare names of every table the catalog gives. nullopt
// after a failing catalog call (shown); noHandle is set when no statement handle could
// be had (shown for the connection).
std::optional<std::u16string> plainTableList(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                             int32_t capacity, std::u16string_view separator, bool &noHandle);

} // namespace tabra::catalog
