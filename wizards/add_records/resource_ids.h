// Resource identifiers of the add records wizard: its six pages and the field dialog
// with their controls, its strings and messages. Their texts are in
// resources/<language>/tabraRes-addrecords.rc; the messages it shares with the other
// wizards are in wizards/resource_ids.h (1617, 1625, 1630, the progress title 2901),
// the ones shared across families in core/resource_ids.h (1600, 1608). The pattern is
// described in core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::wizards::add_records::ids {

// The frame's picture (a picture resource, not a template).
inline constexpr int32_t kWizardPicture = 10014;

// The where-from of a column's value: the field dialog's radios and the descriptor's kind.
inline constexpr struct ValueKind {
    int32_t none = 2100;     // NULL
    int32_t constant = 2101;
    int32_t source = 2102;   // a source column
} kValueKind{};

// The table of the caller's connection the records go into.
inline constexpr struct DestinationTablePage {
    int32_t id = 10034;
    int32_t tables = 1005;
} kDestinationTablePage{};

// The source data source and the login (the shared data source page's controls).
inline constexpr struct DataSourcePage {
    int32_t id = 10028;
    int32_t user = 1002;
    int32_t password = 1003;
    int32_t dataSources = 1004;
} kDataSourcePage{};

// The source table; the radios choose which kinds of table the list shows.
inline constexpr struct SourceTablePage {
    int32_t id = 10026;
    int32_t tables = 1005;
    int32_t showTables = 1041;
    int32_t showViews = 1047;
    int32_t showBoth = 1048;
} kSourceTablePage{};

// The destination columns and where each takes its value from.
inline constexpr struct MappingPage {
    int32_t id = 10033;
    int32_t fields = 1002; // report list view: column, value
    int32_t edit = 1031;
} kMappingPage{};

// The id fields that turn the copy into an update-or-insert.
inline constexpr struct IdPage {
    int32_t id = 10029;
    int32_t destinationFields = 1011;
    int32_t sourceFields = 1012;
    int32_t noIds = 2100;
    int32_t matchIds = 2101;
} kIdPage{};

// The summary: the number of source records.
inline constexpr struct SummaryPage {
    int32_t id = 10030;
    int32_t records = 2125;
} kSummaryPage{};

// One destination column: where its value comes from.
inline constexpr struct FieldDialog {
    int32_t id = 10035;
    int32_t column = 2111;       // the destination column (static)
    int32_t none = 2100;
    int32_t constant = 2101;
    int32_t source = 2102;
    int32_t constantText = 1036;
    int32_t sourceColumns = 1011; // drop-down list of the source columns
} kFieldDialog{};

inline constexpr struct Strings {
    int32_t wizardTitle = 2907;
    int32_t fieldColumns = 2940;  // "title|width|title|width" of the mapping list
    int32_t noValue = 2941;       // shown as the value of a column that gets NULL
    int32_t skipped = 2942;       // shown for a column that is never written
} kString{};

inline constexpr struct Messages {
    int32_t emptyIdField = 1632;   // warning only: id mode without both id fields
    int32_t noSourceColumn = 1633; // no column takes a source column
} kMessage{};

} // namespace tabra::wizards::add_records::ids
