// A text as an SQL string literal, for the values the wizards write into statements.
#pragma once

#include <string>
#include <string_view>

namespace tabra::wizards {

// Appends 'text' with each single quote doubled.
inline void appendSqlLiteral(std::u16string &statement, std::u16string_view text) {
    statement += u'\'';
    for (char16_t c : text) {
        if (c == u'\'') statement += u'\'';
        statement += c;
    }
    statement += u'\'';
}

} // namespace tabra::wizards
