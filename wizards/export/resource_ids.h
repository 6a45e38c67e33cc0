// Resource identifiers of the export wizard: its five pages and the field dialog with
// their controls, its strings, messages and the field list's context menu. Their texts
// are in resources/<language>/tabraRes-export.rc; the messages it shares with the other
// wizards are in wizards/resource_ids.h. The pattern is described in core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::wizards::exporting::ids {

// The frame's picture (a picture resource, not a template).
inline constexpr int32_t kWizardPicture = 10022;

// Page 1: the table to export.
inline constexpr struct TablePage {
    int32_t id = 10050;
    int32_t tables = 1005;
} kTablePage{};

// Page 3: which records, as condition rows of one group (all of them hold).
inline constexpr struct ConditionPage {
    int32_t id = 10051;
    int32_t column1 = 1011, operator1 = 1012, value1 = 1013;
    int32_t column2 = 1015, operator2 = 1016, value2 = 1017;
    int32_t column3 = 1018, operator3 = 1019, value3 = 1020;
    int32_t column4 = 1021, operator4 = 1022, value4 = 1023;
    int32_t column5 = 1024, operator5 = 1025, value5 = 1026;
} kConditionPage{};

// Page 2: the columns to write, with their headings.
inline constexpr struct FieldsPage {
    int32_t id = 10052;
    int32_t fields = 1002; // report list view: column, heading
    int32_t edit = 1031;
} kFieldsPage{};

// Page 4: the file and the text format.
inline constexpr struct FilePage {
    int32_t id = 10053;
    int32_t fileName = 1001;
    int32_t browse = 1012;
    int32_t headerLine = 1026;
    int32_t valuesAsText = 1016; // value form: both write the value text as it stands
    int32_t valuesAsShown = 1017;
    int32_t separatorTab = 1003;
    int32_t separatorBlank = 1004;
    int32_t separatorNone = 1005;
    int32_t separatorOwn = 1006;
    int32_t ownSeparator = 2107;
    int32_t decimalComma = 1010;
    int32_t decimalPoint = 1011;
    int32_t decimalOwn = 1014;
    int32_t ownDecimal = 2108;
    int32_t leadingDelimiter = 2110;
    int32_t trailingDelimiter = 2111;
} kFilePage{};

// Page 5: what is about to happen.
inline constexpr struct SummaryPage {
    int32_t id = 10054;
    int32_t text = 2133;
} kSummaryPage{};

// Editing one field: its heading and whether it is written.
inline constexpr struct FieldDialog {
    int32_t id = 10055;
    int32_t name = 2111;
    int32_t heading = 1036;
    int32_t type = 2119;
    int32_t exported = 2134;
} kFieldDialog{};

inline constexpr struct Strings {
    int32_t fileDialogTitle = 1804;
    int32_t fieldColumns = 1975;  // "title|width|title|width" of the field list
    int32_t notExported = 1976;   // shown as the heading of a field that is not written
    int32_t summary = 2171;       // %1 the number of records
    int32_t wizardTitle = 2911;
    int32_t fileFilter = 2912;    // file dialog filter; its first part titles the progress
} kString{};

inline constexpr struct Messages {
    int32_t noFileName = 1627;
    int32_t emptyHeading = 1636;
    int32_t fileAccessDenied = 1637; // %1 the file
    int32_t fileNotOpened = 1638;    // %1 the file
    int32_t fileExists = 1639;       // %1 the file
    int32_t tooManyFiles = 1640;     // %1 the file
    int32_t noFieldChosen = 1641;
} kMessage{};

// The field list's context menu: its first submenu.
inline constexpr struct FieldMenu {
    int32_t id = 115;
    int32_t edit = 40004;
    int32_t exported = 40005;
    int32_t notExported = 40006;
} kFieldMenu{};

} // namespace tabra::wizards::exporting::ids
