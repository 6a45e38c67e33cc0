// The small rules identifier preparation is built from: what a plain identifier is,
// wrapping in a quote string, and splitting a dotted name into parts. (The
// connection's quote string comes from core/connection/connection_info.h.)
#pragma once

#include "sqltext/bare_names.h"

#include <sql.h>

#include <string>
#include <string_view>
#include <vector>

namespace tabra::sqltext {

// An ASCII letter first, then ASCII letters, digits, "_" or "$". Empty is not plain.
bool isPlainIdentifier(std::u16string_view name);

// Only the space character (code 32) counts for these.
bool isAllSpaces(std::u16string_view text);

// The text "open + part + close", bounded as a part buffer of the given capacity is:
// at most capacity - 1 characters, so a part near the limit loses its end.
std::u16string wrapBounded(std::u16string_view part, std::u16string_view quote, size_t capacity);

// Splits at every "." and cuts each part to maxLength characters.
std::vector<std::u16string> splitDottedParts(std::u16string_view name, size_t maxLength);

// Prepares one name with a known, non-empty quote string (each dotted part trimmed of
// spaces and quote characters, then quoted unless "*", blank, or a plain identifier
// that the rules let stay bare) into out, as a destination of size characters holds
// it, with the list accounting: "." before every part but the first when at least 3
// characters remain (not counted), a part only when it fits.
void writePreparedName(std::u16string_view name, std::u16string_view quote, int32_t size, std::u16string &out,
                       BareNameRules &rules);

} // namespace tabra::sqltext
