// Resource identifiers of the table name dialog. Its texts are in
// resources/<language>/tabraRes-admin-dialogs.rc, with the driver information
// dialog's; message 1616 (the name is taken) is shared with every family
// (core/resource_ids.h). The pattern is described in core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::admin::table_name::ids {

// The name of a new table. The database object dialog opens this template to name
// the copy of a table.
inline constexpr struct TableNameDialog {
    int32_t id = 10002;
    int32_t name = 1003;
} kTableNameDialog{};

// Two radio buttons whose meaning is the caller's, in templates that offer a choice
// beside the name (10002 offers none): the dialog checks the one the caller names and
// hands back the one checked.
inline constexpr struct Options {
    int32_t first = 1005;
    int32_t second = 1006;
} kOption{};

inline constexpr struct Messages {
    int32_t emptyName = 1610; // OK on an empty name
} kMessage{};

} // namespace tabra::admin::table_name::ids
