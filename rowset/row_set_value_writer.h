// The value writer of row-set files: how one fetched value is written, by the kind of
// its column and the transfer flags (quotes, zeros for missing numbers, dates as
// digits, escaped text).
#pragma once

#include <sql.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::rowset {

// Longest value the writer takes, in characters: longer text is cut to it, as the
// library's value buffers always were.
inline constexpr int32_t kMaximumValueLength = 30000;

enum class ValueKind {
    Text,   // character types: -10, -9, -8, -1, 1, 12
    Number, // -6, -5, 2, 3, 4, 5, 6, 7, 8
    Date,   // the date and time codes 9, 10, 11
    Other,  // everything else: bit, binary, unknown, 91 to 93, ... written as fetched
};

ValueKind valueKindOf(SQLLEN sqlType);

class ValueWriter {
public:
    explicit ValueWriter(uint32_t flags);

    // Appends the value to out. value is the fetched text, terminated at value[length];
    // null for an SQL NULL.
    void write(ValueKind kind, const char16_t *value, std::size_t length, std::u16string &out);

private:
    void writeText(const char16_t *value, std::size_t length, std::u16string &out);
    void writeDate(const char16_t *value, std::u16string &out);

    uint32_t flags_;
    std::vector<char16_t> encoded_; // room for an escaped text
};

} // namespace tabra::rowset
