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

// The names of the column types a user chooses from (catalog/column_types.h).
inline constexpr struct ColumnTypeLabels {
    int32_t text = 2800;
    int32_t binary = 2801;
    int32_t integer = 2802;
    int32_t number = 2803;
    int32_t dateTime = 2805;
    int32_t varText = 2809;
    int32_t memo = 2810;
} kColumnTypeLabel{};

inline constexpr struct Messages {
    int32_t confirmDropTable = 1702; // Yes/No: %1 the table
} kMessage{};

} // namespace tabra::catalog::ids
