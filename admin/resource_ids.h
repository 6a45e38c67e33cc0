// Resource identifiers shared by the administration dialogs (subsystem 6); each tool's
// own templates, controls and strings go into admin/<tool>/resource_ids.h. Their texts
// are in resources/<language>/tabraRes-admin.rc; the pattern is described in
// core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::admin::ids {

inline constexpr struct Messages {
    int32_t confirmDropView = 1700;     // Yes/No: %1 the view
    int32_t confirmDropColumn = 1703;   // Yes/No/Cancel: %1 the column; Cancel stops deleting columns
    int32_t confirmDropPrimaryKey = 1704; // Yes/No
} kMessage{};

} // namespace tabra::admin::ids
