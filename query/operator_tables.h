// The two operator tables of selection and operation descriptors: the selection
// operators (kind 1, WHERE) and the assignment operators (kind 2, SET).
//
// The stored keys are fixed: "IN" means "is null" and the in-list operator is "IL";
// stored descriptors and mask files carry these keys.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tabra::query {

// Value kind flags of an operator.
inline constexpr uint32_t kNoValue = 1;      // needs no value (else an empty value drops the line)
inline constexpr uint32_t kColumnValue = 2;  // the value is a column name, quoted
inline constexpr uint32_t kLiteralValue = 4; // the value is one literal, formatted by data type
inline constexpr uint32_t kListValue = 8;    // the value is a ";" list of literals

inline constexpr int32_t kSelectionKind = 1;
inline constexpr int32_t kAssignmentKind = 2;

struct OperatorEntry {
    int32_t code;                 // unique across both tables
    std::u16string_view key;      // stored in the descriptor's second field
    uint32_t flags;               // value kind
    int32_t labelId;              // string resource shown in the operator box
    std::u16string_view pattern;  // condition text (selection operators only)
};

// The table of a kind (1 or 2) in box order; empty for any other kind.
std::span<const OperatorEntry> operatorTable(int32_t kind);
// The entry of a kind with this key (exact) or this code; null when there is none.
const OperatorEntry *findOperatorByKey(int32_t kind, std::u16string_view key);
const OperatorEntry *findOperatorByCode(int32_t kind, int32_t code);

} // namespace tabra::query
