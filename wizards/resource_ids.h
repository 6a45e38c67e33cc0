// Resource identifiers shared by the data wizards (subsystem 5); each wizard's own
// templates, controls and strings go into wizards/<wizard>/resource_ids.h. Their texts
// are in resources/<language>/tabraRes-wizards.rc; the pattern is described in
// core/resource_ids.h.
#pragma once

#include <cstdint>

namespace tabra::wizards::ids {

inline constexpr struct Messages {
    int32_t tableWithoutColumns = 1617; // %1 the table
    int32_t nothingChosen = 1625;       // no table chosen in a list, or an empty name
    int32_t noMatchingRows = 1626;      // the condition selects no row (or could not be counted)
    int32_t conversionNotAllowed = 1630; // %1 the source column: its type cannot go to the destination's
} kMessage{};

inline constexpr struct Strings {
    int32_t progressTitle = 2901; // the progress indicator of the rows a wizard writes
} kString{};

} // namespace tabra::wizards::ids
