// The token reader of text lines.
#include "wizards/import/delimited_tokens.h"

namespace tabra::wizards::importing {

bool DelimitedTokens::next(std::u16string &token, std::size_t capacity) {
    token.clear();
    if (position_ >= line_.size()) return false;
    bool quoted = false;
    for (; position_ < line_.size(); ++position_) {
        char16_t c = line_[position_];
        if (quoted) {
            if (c == format_.trailing) quoted = false;
            else if (token.size() + 1 < capacity) token.push_back(c);
            continue;
        }
        if (format_.separator != 0 && c == format_.separator) {
            ++position_;
            return true;
        }
        if (format_.leading != 0 && c == format_.leading) quoted = true;
        else if (token.size() + 1 < capacity) token.push_back(c);
    }
    return true;
}

} // namespace tabra::wizards::importing
