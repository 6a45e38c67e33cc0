// The checks of the fields before the import. Each examines the imported fields in
// display order from the first up to, but not including, the last one, and stops at
// the first failing field: the last field is never checked, a deliberate limit of the
// product (only as the second of a pair of equal names does it count).
//
//   1628  two imported fields have the same column name, ignoring case (the name)
//   1629  more than one imported field is the auto-increment column
//   1630  the source type cannot be converted to the column's type (the source name)
//   1631  a column name holds one of . ' " [ ] ( ) (the name)
//
// Allowed conversions: equal types; any source type outside 1..10; integer and number
// (2, 3) to text, integer, number, memo or variable text (1, 2, 3, 9, 10); date and
// time (4) to text, date and time or variable text (1, 4, 10); any other source type
// to anything.
#pragma once

#include "wizards/import/import_fields.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tabra::wizards::importing {

bool conversionAllowed(int32_t sourceType, int32_t type);

struct CheckFailure {
    int32_t message = 0;
    std::u16string argument;
};
// The first failing check, or nullopt when the fields pass.
std::optional<CheckFailure> checkFields(const ImportFieldList &fields);

} // namespace tabra::wizards::importing
