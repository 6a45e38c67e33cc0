// The token reader of text lines: the values of one line of a delimited text file (or
// the names of its header line), split at a separator, with an optional pair of text
// delimiters around a value that may itself hold the separator.
//
// Outside delimiters a separator ends the token and is skipped, and the leading
// delimiter is skipped and opens a quoted stretch; inside it the trailing delimiter is
// skipped and closes the stretch, every other character (the separator too) is copied.
// So a doubled delimiter yields no delimiter character: "a""b" reads ab. A token is cut
// to capacity - 1 characters (the rest is dropped). At the end of the text there is no
// further token: an empty line has none, and a separator that ends the line adds no
// empty one, while two separators in a row enclose an empty token.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tabra::wizards::importing {

struct TokenFormat {
    char16_t separator = u'\t'; // 0: none, the whole line is one token
    char16_t leading = 0;       // 0: no delimiters
    char16_t trailing = 0;
};

class DelimitedTokens {
public:
    DelimitedTokens(std::u16string_view line, TokenFormat format) : line_(line), format_(format) {}
    // The next token into token; false at the end of the line.
    bool next(std::u16string &token, std::size_t capacity);

private:
    std::u16string_view line_;
    TokenFormat format_;
    std::size_t position_ = 0;
};

} // namespace tabra::wizards::importing
