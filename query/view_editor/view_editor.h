// The view editor: a view's name and SELECT statement, designed, tested and created in
// the data source, with the statement and the designer's descriptors kept in the
// system table under the object type "VIEW" so that the view can be designed again.
#pragma once

#include "tabra_base.h" // HWND, SQLHDBC

#include <sql.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::query::view_editor {

struct ViewEditState {
    SQLHDBC connection = SQL_NULL_HDBC;
    std::u16string schema;       // at most 99 characters
    std::u16string name;         // the view's name (control 1033)
    std::u16string openingName;  // the name when the dialog opened
    std::u16string statement;    // the view's SELECT
    std::u16string tables, columns, selection; // designer descriptors of kinds 1, 2 and 4
    int32_t flags = 0;           // 0x2 or 0x1000000: an existing view may be replaced
    bool initialising = false;
};

// Reads the four system table items of view `name` (object type "VIEW") into the
// state (name set too); true when its "Sql" item exists and is not blank.
bool loadViewItems(ViewEditState &state, std::u16string_view name);

// CREATE VIEW under `name` (the state's name when empty), then the four items; 1 or 2.
int32_t createView(ViewEditState &state, std::u16string_view name = {});

// Drops view `name` by `mode` (bit 1 ignore every error, bit 2 ignore S0002) and
// deletes its items; 1 or 2.
int32_t dropView(ViewEditState &state, std::u16string_view name, int32_t mode);

// Runs dialog 10063 on a copy of `state` with `flags` added; copied back only on OK.
// 1 after OK, 2 otherwise.
int32_t runViewEditor(ViewEditState &state, int32_t flags, HWND owner);

} // namespace tabra::query::view_editor
