// Resource identifiers of the import wizard: its nine pages and the field dialog with
// their controls, its strings, messages and the field list's context menu. Their texts
// are in resources/<language>/tabraRes-import.rc; the messages it shares with the other
// wizards are in wizards/resource_ids.h (1617, 1625, 1630, the progress title 2901), the ones shared across
// families in core/resource_ids.h (1600, 1601, 1602, 1615, 1616, 1642). The pattern is
// described in core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::wizards::importing::ids {

// The frame's picture (a picture resource, not a template).
inline constexpr int32_t kWizardPicture = 10013;

// Where the records come from. The checked radio's id is the source kind ("Type").
inline constexpr struct SourceKindPage {
    int32_t id = 108;
    int32_t table = 2104;
    int32_t textFile = 2105;
    int32_t sdiFile = 2106;
    int32_t selectionFile = 2107;
} kSourceKindPage{};

// A delimited text file and its format.
inline constexpr struct TextFilePage {
    int32_t id = 10021;
    int32_t fileName = 1001;
    int32_t browse = 1012;
    int32_t namesInFirstLine = 1019; // first-line kind
    int32_t dataInFirstLine = 1020;
    int32_t valuesAsText = 1016; // value form ("header kind"): both read the value text as it stands
    int32_t valuesAsShown = 1017;
    int32_t separatorTab = 1003;
    int32_t separatorBlank = 1004;
    int32_t separatorOwn = 1006;
    int32_t ownSeparator = 2107;
    int32_t decimalComma = 1010;
    int32_t decimalPoint = 1011;
    int32_t decimalOwn = 1014;
    int32_t ownDecimal = 2108;
    int32_t leadingDelimiter = 2110;
    int32_t trailingDelimiter = 2111;
} kTextFilePage{};

// A selection file.
inline constexpr struct SelectionFilePage {
    int32_t id = 10022;
    int32_t fileName = 1001;
    int32_t browse = 1012;
} kSelectionFilePage{};

// An SDI file, and whether its telephone/fax pairs become one column per kind.
inline constexpr struct SdiFilePage {
    int32_t id = 10023;
    int32_t fileName = 1001;
    int32_t browse = 1012;
    int32_t converter = 2134;
    int32_t kinds = 2133; // the converter's kinds, shown
} kSdiFilePage{};

// The data source of a source table, with its login.
inline constexpr struct DataSourcePage {
    int32_t id = 110;
    int32_t user = 1002;
    int32_t password = 1003;
    int32_t dataSources = 1004;
} kDataSourcePage{};

// The source table.
inline constexpr struct SourceTablePage {
    int32_t id = 111;
    int32_t tables = 1005;
} kSourceTablePage{};

// The fields: each source field, the column it becomes, its type; the columns' order.
inline constexpr struct MappingPage {
    int32_t id = 10024;
    int32_t fields = 1002; // report list view: field, column, type
    int32_t edit = 1031;
    int32_t up = 2146;
    int32_t down = 2147;
} kMappingPage{};

// The name of the new table.
inline constexpr struct DestinationPage {
    int32_t id = 10020;
    int32_t tableName = 1001;
} kDestinationPage{};

// The closing page: what happens on Finish (no handling of its own).
inline constexpr struct ClosingPage {
    int32_t id = 10032;
} kClosingPage{};

// One field: the column it becomes.
inline constexpr struct FieldDialog {
    int32_t id = 10031;
    int32_t sourceName = 2111;
    int32_t sourceType = 2119;
    int32_t name = 1036;
    int32_t type = 1011; // drop-down list of the column types
    int32_t length = 1034;
    int32_t imported = 2134;
    int32_t autoIncrement = 1026;
    int32_t valueFiles = 1027;   // each value names a file whose content is imported
    int32_t silentFiles = 1028;  // a missing value file gives no message
} kFieldDialog{};

inline constexpr struct Strings {
    int32_t wizardTitle = 2906;
    int32_t fieldColumns = 2920;   // "title|width|title|width|title|width" of the field list
    int32_t notImported = 2921;    // shown as the column of a field that is not imported
    int32_t textFileFilter = 2922; // file dialog filters
    int32_t sdiFileFilter = 2923;
    int32_t selectionFileFilter = 2924;
    int32_t fileDialogTitle = 2925;
    int32_t autoIncrement = 2926;  // after the type of the auto-increment column
    int32_t converterKinds = 2927; // %1 the kinds
} kString{};

inline constexpr struct Messages {
    int32_t sameColumnTwice = 1628;    // %1 the column
    int32_t autoIncrementTwice = 1629;
    int32_t forbiddenCharacter = 1631; // %1 the column
    int32_t stoppedAtRecord = 1651;    // %1 the record, %2 the records kept, %3 the table
    int32_t valueNotConverted = 1652;  // %1 the value, %2 the field, %3 the record
    int32_t noFieldImported = 1653;
    int32_t noFileName = 1654;
    int32_t noColumnName = 1655;       // %1 the field
} kMessage{};

// The field list's context menu: its first submenu.
inline constexpr struct FieldMenu {
    int32_t id = 116;
    int32_t edit = 40004;
    int32_t imported = 40005;
    int32_t notImported = 40006;
} kFieldMenu{};

} // namespace tabra::wizards::importing::ids
