// Descriptors in rows of dialog controls (the selection-descriptor control sets): each
// row is a column box, an operator box and a value box; separator rows divide the rows
// into blocks, one block per group. The selection dialog and the wizard pages that edit
// a condition or an assignment list show and read their descriptors with these; the
// exported Tabra_OpDesc_To_DialogItems and Tabra_DialogItems_To_OpDesc are shells over
// them.
#pragma once

#include "tabra_query.h"

#include <cstdint>
#include <string>

namespace tabra::query {

// Fills the boxes of every row of the table (ended by a row whose column id is below
// 1) for kind (kSelectionKind or kAssignmentKind; any other kind does nothing): the
// operator boxes get the kind's operators, and with a columnList the column and value
// boxes get the columns. Then the descriptor (may be null) is shown, one group per
// block of rows.
void showDescriptorInRows(int32_t kind, const char16_t *descriptor, const char16_t *columnList, HWND dialog,
                          const ConditionRow *rows);

// The descriptor the rows hold, as a buffer of capacity characters (at least 1) keeps
// it; empty for a kind other than 1 or 2 or a null row table.
std::u16string descriptorFromRows(int32_t kind, HWND dialog, const ConditionRow *rows, int32_t capacity);

} // namespace tabra::query
