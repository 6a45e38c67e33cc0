// The designer's lists as descriptors: texts of lines ended by character 10 with
// tab-separated fields, one line per entry, which callers store and set again.
//
//   tables (kind 1):     name, alias, join key, comparison key, left column, right column
//   columns (kind 2):    expression, alias
//   sort order (kind 3): column, direction
//   selection (kind 4):  the selection descriptor itself
#pragma once

#include "query/designer/query_design.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::query::designer {

inline constexpr size_t kLineLength = 999; // characters of a descriptor line, read or written

bool isDescriptorKind(int32_t kind);

// The descriptor of a kind (TABRA_SELFACT_TABLES ... TABRA_SELFACT_SELECTION): the lines
// of the entries joined by character 10, missing texts as empty fields, the keys of
// the join type and comparison written as their tables have them. Empty for other
// kinds.
std::u16string descriptorText(const QueryDesign &design, int32_t kind);

// Replaces the list of a kind by the entries of a descriptor: one entry per non-empty
// line, fields in order (missing ones empty), blank fields empty, keys looked up
// without regard to case (unknown keys give the default). A blank text leaves the list
// empty. Other kinds change nothing.
void setDescriptor(QueryDesign &design, int32_t kind, std::u16string_view text);

} // namespace tabra::query::designer
