// Copying a design, and editing one on a copy: the designer dialog works on a copy,
// which replaces the lists of the original only when the user confirms.
#pragma once

#include "query/designer/query_design.h"

#include <functional>

namespace tabra::query::designer {

// Copies the connection, schema, flags and every entry of the four lists with all
// their texts; the target's lists are replaced whole. The target's dialog stays.
void copyDesign(const QueryDesign &from, QueryDesign &to);

// Runs the designer dialog (template 10064) over parent on the copy it is handed and
// answers 1 (OK) or 2 (Cancel). The dialog itself is provided with the designer
// dialog; this is the one place the model calls it.
using DesignerDialogRun = std::function<int32_t(HWND parent, QueryDesign &copy)>;

// Edits design on a copy in the dialog. After OK (1) the copy's lists replace the
// design's; after Cancel (2) the design is as it was. When memory runs out, message
// 1600 is shown and the result is 2, the design unchanged. The copy is gone in every
// case.
int32_t editOnCopy(QueryDesign &design, HWND parent, const DesignerDialogRun &runDialog);

// Tabra_SelFact_Edit on a handle: 2 for a null handle, else editOnCopy. (Exported with
// the designer dialog, which it runs.)
int32_t editSelFact(SelFact handle, HWND parent, const DesignerDialogRun &runDialog);

} // namespace tabra::query::designer
