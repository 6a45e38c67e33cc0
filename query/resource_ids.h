// Resource identifiers of subsystem 4 (selection descriptors, clause editing, query
// designer, view editor, select statement wizard): its dialog templates with their
// controls, strings and messages. Their texts are in resources/<language>/tabraRes-query.rc;
// the pattern is described in core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::query::ids {

// Editing the alias of a column-list entry.
inline constexpr struct AliasDialog {
    int32_t id = 10006;
    int32_t alias = 1033;
} kAliasDialog{};

// The selection dialog; its condition rows are TABRA_SELECTION_DIALOG_ROWS
// (tabra_query.h) and its help button IDHELP. Its help topic is its template id.
inline constexpr struct SelectionDialog {
    int32_t id = 10019;
    int32_t loadMask = 3;
    int32_t saveMask = 4;
} kSelectionDialog{};

// The labels of the operators in operator boxes, by operator.
inline constexpr struct OperatorLabels {
    int32_t beginsWith = 1904;
    int32_t contains = 1905;
    int32_t equal = 1906;
    int32_t equalColumn = 1907;
    int32_t greaterOrEqual = 1908;
    int32_t greaterOrEqualColumn = 1909;
    int32_t greater = 1910;
    int32_t greaterColumn = 1911;
    int32_t notEmpty = 1912;
    int32_t empty = 1913;
    int32_t lessOrEqual = 1914;
    int32_t lessOrEqualColumn = 1915;
    int32_t less = 1916;
    int32_t lessColumn = 1917;
    int32_t notEqual = 1918;
    int32_t notEqualColumn = 1919;
    int32_t oneOf = 1923;
    int32_t setNull = 2167;
    int32_t setValue = 2168;
    int32_t setColumn = 2169;
    int32_t setExpression = 2170;
} kOperatorLabel{};

inline constexpr struct Strings {
    int32_t maskFilter = 1805;    // file dialog filter of selection masks
    int32_t ascending = 1950;     // sort directions in sort lists
    int32_t descending = 1951;
    int32_t loadMaskTitle = 2913;
    int32_t saveMaskTitle = 2914;
} kString{};

inline constexpr struct Messages {
    int32_t notAMask = 1649;       // %1 the file: not a selection mask, or unreadable
    int32_t maskNotWritten = 1650; // %1 the file: not written whole
    int32_t statementValid = 1706; // the query designer's statement test passed
} kMessage{};

// ---- The query designer ----
// Its dialog: a tab page per list over the statement the lists build. Its texts are
// in resources/<language>/tabraRes-designer.rc (the join and comparison labels and
// message 1706 with the query family's).
inline constexpr struct DesignerDialog {
    int32_t id = 10064;
    int32_t pages = 1101;        // the tab control
    int32_t statement = 1102;    // the statement, read-only
    int32_t chooseSchema = 1103;
    int32_t schema = 1104;       // the schema the tables are listed from
    int32_t test = 3;            // the statement test
} kDesignerDialog{};

// Every list page holds the lists and buttons of this block: what may be added on
// the left, the statement's list on the right, the buttons between and beside them.
inline constexpr struct DesignerListControls {
    int32_t available = 1201; // list box
    int32_t chosen = 1202;    // list view (the selection page has condition rows instead)
    int32_t add = 1203;
    int32_t remove = 1204;
    int32_t up = 1205;
    int32_t down = 1206;
} kDesignerList{};

inline constexpr struct DesignerTablesPage {
    int32_t id = 10641;
    int32_t edit = 1207; // the join dialog on the chosen table
} kDesignerTablesPage{};

inline constexpr struct DesignerColumnsPage {
    int32_t id = 10642;
    int32_t edit = 1207;       // the column dialog on the chosen column
    int32_t expression = 1208; // the column dialog on a new expression
} kDesignerColumnsPage{};

// The condition rows of the selection page are TABRA_DESIGNER_SELECTION_ROWS
// (query/designer/selection_rows.h).
inline constexpr struct DesignerSelectionPage {
    int32_t id = 10643;
} kDesignerSelectionPage{};

inline constexpr struct DesignerSortPage {
    int32_t id = 10644;
    int32_t ascending = 1209;  // radio buttons: the chosen sort column's direction
    int32_t descending = 1210;
} kDesignerSortPage{};

// A table of the statement with its join.
inline constexpr struct DesignerJoinDialog {
    int32_t id = 10645;
    int32_t table = 1301;
    int32_t alias = 1302;
    int32_t joinType = 1303;
    int32_t leftColumn = 1304;
    int32_t comparison = 1305;
    int32_t rightColumn = 1306;
    int32_t preview = 1307; // the table's part of the FROM clause
} kDesignerJoinDialog{};

// A result column: its expression and alias.
inline constexpr struct DesignerColumnDialog {
    int32_t id = 10646;
    int32_t expression = 1401;
    int32_t alias = 1402;
} kDesignerColumnDialog{};

inline constexpr struct DesignerStrings {
    int32_t tableColumns = 3620;  // list view columns "Title|width|...", pixels
    int32_t resultColumns = 3621;
    int32_t sortColumns = 3622;
    int32_t defaultSchema = 3623; // shown when no schema is chosen
} kDesignerString{};

inline constexpr struct DesignerMessages {
    int32_t aliasTaken = 3630; // %1 the alias: another table of the statement has it
    int32_t noTable = 3631;    // the join dialog has no table
} kDesignerMessage{};

// The labels of the designer's join types and join comparisons, by code.
inline constexpr struct DesignerLabels {
    int32_t plainTable = 3600;
    int32_t leftJoin = 3601;
    int32_t innerJoin = 3602;
    int32_t rightJoin = 3603;
    int32_t equal = 3610;
    int32_t notEqual = 3611;
    int32_t lessThan = 3612;    // key "GT": the stored keys are crossed on purpose
    int32_t lessOrEqual = 3613; // key "GE"
    int32_t greaterThan = 3614; // key "LT"
    int32_t greaterOrEqual = 3615; // key "LE"
} kDesignerLabel{};

// ---- The view editor ----
// Its dialog: the view's name and its SELECT statement, designed, tested, loaded from
// and saved to statement files. Its texts are in resources/<language>/tabraRes-viewedit.rc.
inline constexpr struct ViewEditorDialog {
    int32_t id = 10063;
    int32_t name = 1033;      // letters, digits 1 to 9 and "_"
    int32_t statement = 1014; // the view's SELECT, multi-line
    int32_t design = 1003;    // the query designer on the statement's lists
    int32_t test = 3;
    int32_t load = 4;
    int32_t save = 5;
} kViewEditorDialog{};

inline constexpr struct ViewEditorStrings {
    int32_t statementFilter = 1806; // file dialog filter of statement files
    int32_t loadTitle = 2915;       // its own id: 2907 is the add records wizard's title
    int32_t saveTitle = 2916;
} kViewEditorString{};

// A blank statement is message 1609 and out of memory 1600 (core/resource_ids.h).
inline constexpr struct ViewEditorMessages {
    int32_t badName = 1603;    // the name holds a character outside the alias alphabet
    int32_t noName = 1611;
    int32_t testPassed = 1707; // the view's statement was created as a test view
} kViewEditorMessage{};

} // namespace tabra::query::ids
