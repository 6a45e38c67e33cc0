// Whether a table exists, as C++: against the table list, or row by row through the
// catalog.
#pragma once

#include <sql.h>

#include <cstdint>

namespace tabra::catalog {

// Tabra_DoesTableExist(Extended): 1 when name (any case; null is the empty name) is an
// entry of the table list, 0 when not, -1 when the list could not be read. Only the
// first 10000 characters of the list are searched: a deliberate limit.
int32_t findInTableList(SQLHDBC connection, int32_t typeFlags, const char16_t *schema, uint8_t qualify,
                        const char16_t *name);

// OdbcEh_DoesTableExist: 1 when a catalog row names the table (any case); 0 when none
// does, the name or the connection is null or the catalog call failed (shown); 2 when
// no statement handle could be had (shown).
int32_t findInCatalog(SQLHDBC connection, int32_t typeFlags, const char16_t *schema, const char16_t *name);

} // namespace tabra::catalog
