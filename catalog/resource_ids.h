// Resource identifiers of subsystem 3 (catalog, table operations, row-set transfer,
// system table): its strings and messages. Their texts are in
// resources/<language>/tabraRes-catalog.rc; the pattern is described in core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::catalog::ids {

inline constexpr struct Strings {
    int32_t copyingTableNotice = 427; // shown while a table is copied under its new name
    int32_t rowSetProgress = 2813;    // progress of a row-set file: %d of %d records
} kString{};

inline constexpr struct Messages {
    int32_t confirmDropTable = 1702; // Yes/No: %1 the table
} kMessage{};

} // namespace tabra::catalog::ids
