// The join types and comparisons of a table entry: the codes the model holds, the
// keys descriptors carry, the SQL they write and the labels the dialog shows.
//
// The keys "GT", "GE", "LT" and "LE" write the opposite symbol of their name ("GT"
// writes "<"). Stored descriptors carry these keys, so the pairing stays as it is.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tabra::query::designer {

struct JoinType {
    int32_t code;
    std::u16string_view key;     // in descriptors; empty for a plain table
    std::u16string_view keyword; // before the table; empty: the table follows ", "
    int32_t labelId;
};

struct Comparison {
    int32_t code;
    std::u16string_view key;
    std::u16string_view symbol; // between the two columns of the ON condition
    int32_t labelId;
};

// The tables in the order the dialog offers them; the first entry of each is the
// default (a plain table, "=").
std::span<const JoinType> joinTypes();
std::span<const Comparison> comparisons();

// The entry of a code; the default entry for an unknown code.
const JoinType &joinTypeOf(int32_t code);
const Comparison &comparisonOf(int32_t code);

// The code of a key, compared without regard to case; the default's code for an
// unknown or empty key.
int32_t joinTypeCodeOf(std::u16string_view key);
int32_t comparisonCodeOf(std::u16string_view key);

} // namespace tabra::query::designer
