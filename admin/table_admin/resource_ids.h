// Resource identifiers of the table administration: its main dialog, the three
// sub-dialogs, the context menu of the column list, its strings and messages. Their
// texts are in resources/<language>/tabraRes-tableadmin.rc; the pattern is described in
// core/resource_ids.h. The questions before columns and the key are deleted are the
// administration family's (admin/resource_ids.h); "not possible on this database" is
// core's (kMessage.notPossibleHere).
#pragma once

#include <cstdint>

namespace tabra::admin::table_admin::ids {

// One table's columns and keys; the title is a format taking the table's name.
inline constexpr struct TableAdminDialog {
    int32_t id = 10009;
    int32_t columns = 1002;            // list view: name, type, null values, default, remarks
    int32_t deleteColumns = 1004;      // enabled while a row is selected
    int32_t addPrimaryKey = 1006;
    int32_t dropPrimaryKey = 1007;
    int32_t addAutoIncrement = 1008;
    int32_t keyColumns = 1014;         // the primary key's columns, or a string saying none
    int32_t autoIncrementColumn = 1015;
    int32_t addColumn = 2003;
} kTableAdminDialog{};

// A new column: name, type (item data: the row of the column type table), length
// (shown for types that take one) and the NOT NULL option.
inline constexpr struct AddColumnDialog {
    int32_t id = 10010;
    int32_t type = 1011;
    int32_t required = 1026;           // enabled where the database has a column suffix
    int32_t name = 1033;
    int32_t length = 1034;
    int32_t lengthLabel = 2103;        // shown with the length; its text is kString.lengthLabel
} kAddColumnDialog{};

// A new auto-increment column: its name.
inline constexpr struct AddAutoIncrementDialog {
    int32_t id = 10057;
    int32_t name = 1033;
} kAddAutoIncrementDialog{};

// Choosing the columns of a new primary key, in order.
inline constexpr struct AddPrimaryKeyDialog {
    int32_t id = 10059;
    int32_t available = 1002;          // the table's NOT NULL columns
    int32_t table = 1003;
    int32_t chosen = 1004;
    int32_t add = 1006;
    int32_t remove = 1007;
    int32_t up = 2146;
    int32_t down = 2147;
} kAddPrimaryKeyDialog{};

// The context menu of the column list (its first submenu).
inline constexpr struct Menus {
    int32_t columns = 113;
} kMenu{};

inline constexpr struct MenuCommands {
    int32_t addColumn = 40001;
    int32_t deleteColumns = 40002;
} kMenuCommand{};

inline constexpr struct Strings {
    int32_t keyAdded = 437;            // notice after the primary key was added
    int32_t keyDropped = 438;          // notice after the primary key was removed
    int32_t nullable = 1952;           // null values allowed
    int32_t notNullable = 1961;        // no null values
    int32_t nullabilityUnknown = 1966;
    int32_t columnHeaders = 1973;      // "Title|width|..." of the column list
    int32_t lengthLabel = 2103;
    int32_t keyUnreadable = 2172;      // the key display when the key cannot be read
    int32_t noKey = 2812;              // the key display of a table without a key
} kString{};

inline constexpr struct Messages {
    int32_t columnExists = 1622;             // %1 the column's name
    int32_t autoIncrementExists = 1623;
    int32_t lengthMissing = 1624;
    int32_t noKeyColumnChosen = 1645;
    int32_t noKey = 1646;
    int32_t keyExists = 1647;
    int32_t keyCannotBeDropped = 1648;
    // The table rebuild (databases whose ALTER TABLE cannot change keys) was rolled back:
    int32_t rebuildRowsDiffer = 1690;        // %1 the table, %2 rows before, %3 rows after
    int32_t rebuildBreaksReferences = 1691;  // %1 the table, %2 the tables whose references fail
    int32_t rebuildNeedsAutocommit = 1692;   // %1 the table: the connection holds an open transaction
} kMessage{};

} // namespace tabra::admin::table_admin::ids
