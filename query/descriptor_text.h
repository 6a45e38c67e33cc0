// Reading selection and operation descriptors: splitting into groups, lines and the
// four fields of a condition.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::query {

inline constexpr char16_t kGroupSeparator = u'\v';   // 11: between alternatives
inline constexpr char16_t kLineEnd = u'\n';          // 10: ends each condition
inline constexpr char16_t kFieldSeparator = u'\t';   // 9: between the four fields
inline constexpr size_t kColumnLength = 99;          // characters of a column name used
inline constexpr size_t kValueLength = 299;          // characters of a value used

// The pieces of text between separators, empty pieces skipped.
std::vector<std::u16string_view> splitNonEmpty(std::u16string_view text, char16_t separator);
// The pieces of text each ended by a separator, empty ones kept, and the rest after
// the last separator when there is any.
std::vector<std::u16string_view> splitKeepingEmpty(std::u16string_view text, char16_t separator);

// One condition line: column (99 characters), operator key, value (299) and data type.
struct DescriptorLine {
    std::u16string column;
    std::u16string key;
    std::u16string value;
    int32_t dataType = 0;
};

// Splits a line at tabs; missing fields are empty, a missing or unreadable data type
// is 0 (a leading sign and the digits that follow are read, as atoi does).
DescriptorLine parseDescriptorLine(std::u16string_view line);

} // namespace tabra::query
