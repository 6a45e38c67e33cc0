// Resource identifiers shared by the data wizards (subsystem 5); each wizard's own
// templates, controls and strings go into wizards/<wizard>/resource_ids.h. Their texts
// are in resources/<language>/tabraRes-wizards.rc; the pattern is described in
// core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::wizards::ids {

inline constexpr struct Messages {
    int32_t tableWithoutColumns = 1617; // %1 the table
} kMessage{};

} // namespace tabra::wizards::ids
