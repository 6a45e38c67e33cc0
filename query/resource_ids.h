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

// The query designer's dialog.
inline constexpr struct DesignerDialog {
    int32_t id = 10064;
} kDesignerDialog{};

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

} // namespace tabra::query::ids
