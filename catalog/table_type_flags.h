// The table-type flags of the table readers: the TableType argument they give the
// catalog, and the library's own bookkeeping tables that stay hidden unless system
// tables are asked for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::catalog {

// The quoted type names joined by commas, in the order TABLE, ALIAS, VIEW, SYNONYM,
// SYSTEM TABLE; nullopt for "all types" (bit 16), which the catalog gets as null.
// No bit set gives the empty text, which the catalog gets as it is.
std::optional<std::u16string> tableTypeList(int32_t flags);

// The library's bookkeeping tables: names starting with "USys" (case-sensitive) and
// "OstrelSysTable" (any case).
bool isBookkeepingTable(std::u16string_view name);

} // namespace tabra::catalog
