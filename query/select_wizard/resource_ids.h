// Resource identifiers of the select statement wizard: its dialog with the controls.
// Its texts are in resources/<language>/tabraRes-selwizard.rc; out of memory is the
// library's message (core/resource_ids.h). The pattern is described in
// core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::query::select_wizard::ids {

// One dialog composing a SELECT from tables, columns and a sort column. Its help topic
// is its template id.
inline constexpr struct SelectWizardDialog {
    int32_t id = 10042;
    int32_t dataSource = 1006;   // the data source's name, read-only
    int32_t schemaLabel = 2148;
    int32_t schema = 2149;       // the schema the tables are listed from, read-only
    int32_t chooseSchema = 1147;
    // Object type check boxes; their table-type flags are in select_wizard.cpp.
    int32_t tables = 21117;
    int32_t views = 21118;
    int32_t systemTables = 1011;
    int32_t aliases = 5811;
    int32_t synonyms = 5810;
    int32_t allTypes = 5812;
    int32_t tableList = 1005;    // list box, several entries may be selected
    int32_t sourceLabel = 1044;  // the column group: its labels, lists and buttons
    int32_t sourceColumns = 9000;
    int32_t add = 1046;          // the selected source column to the chosen ones
    int32_t chosenLabel = 1045;
    int32_t chosenColumns = 2143;
    int32_t remove = 1003;
    int32_t up = 2146;
    int32_t down = 2147;
    int32_t allColumns = 1026;   // check box: "*" instead of the chosen columns
    int32_t noSort = 2102;       // check box: no ORDER BY
    int32_t sortColumn = 1012;   // drop-down list
    int32_t statement = 2141;    // the statement, read-only
} kSelectWizardDialog{};

} // namespace tabra::query::select_wizard::ids
