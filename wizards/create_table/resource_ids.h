// Resource identifiers of the create table wizard: its picture, pages with their
// controls, and strings. Their texts are in resources/<language>/tabraRes-createtable.rc;
// message 1625 is shared with the other wizards (wizards/resource_ids.h), 1600, 1616
// and 1642 with every family (core/resource_ids.h). The pattern is described in
// core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::wizards::create_table::ids {

// The frame's picture (a namespace of its own in the resource library).
inline constexpr struct Pictures {
    int32_t createTable = 10019;
} kPicture{};

// How the table is made: one radio button per way. The buttons' ids are the modes
// the wizard stores.
inline constexpr struct ModePage {
    int32_t id = 10036;
    int32_t keyColumnOnly = 2100;     // a table of one auto-increment key column, Id
    int32_t copyStructure = 2101;     // an empty copy of another table's structure
    int32_t defaultDefinition = 2102; // the default columns (string 2161) and Id where possible
} kModePage{};

// The table whose structure is copied (only for copyStructure).
inline constexpr struct SourcePage {
    int32_t id = 10038;
    int32_t tables = 1005;
} kSourcePage{};

// The new table's name.
inline constexpr struct NamePage {
    int32_t id = 10039;
    int32_t name = 1003;
} kNamePage{};

// The closing page: texts only, no procedure of its own.
inline constexpr struct ClosingPage {
    int32_t id = 10040;
} kClosingPage{};

inline constexpr struct Strings {
    int32_t defaultTableName = 1965; // the proposed name, made unique
    int32_t defaultColumns = 2161;   // a column definition in SQL, without parentheses
    int32_t title = 2902;            // the frame's title
} kString{};

} // namespace tabra::wizards::create_table::ids
