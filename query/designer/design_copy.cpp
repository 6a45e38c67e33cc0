// Copying designs and editing on a copy.
#include "query/designer/design_copy.h"

#include "core/resource_ids.h"
#include "query/resource_ids.h"
#include "tabra_connection.h"

#include <new>
#include <utility>

namespace tabra::query::designer {

void copyDesign(const QueryDesign &from, QueryDesign &to) {
    // Every text is copied before the target changes, so a failed copy leaves it whole.
    QueryDesign copy = from;
    copy.dialog = to.dialog;
    to = std::move(copy);
}

int32_t editOnCopy(QueryDesign &design, HWND parent, const DesignerDialogRun &runDialog) {
    try {
        QueryDesign copy(design.connection, design.schema, design.flags);
        copyDesign(design, copy);
        if (runDialog(parent, copy) != 1) return 2;
        // The copy ends here, so its texts move back instead of being copied again.
        copy.dialog = design.dialog;
        design = std::move(copy);
        return 1;
    } catch (const std::bad_alloc &) {
        ShowMessage(core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return 2;
    }
}

} // namespace tabra::query::designer
