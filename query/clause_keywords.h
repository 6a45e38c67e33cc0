// The clause keyword table and the keyword scanner of the SELECT clause engine.
//
// The scanner knows nine keywords, parentheses and quoted strings. A word is a
// maximal run of letters (iswalpha of the character), so digits and "_" end a word:
// a column named FROM_DATE holds the word FROM and ends a column list there. Names
// that must not be taken for keywords have to be quoted.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tabra::query {

struct ClauseKeyword {
    std::u16string_view text; // upper case
    int32_t number;
};

// The keywords in table order: SELECT 1, FROM 2, ORDER 3, BY 4, HAVING 5, INTO 6,
// WHERE 7, GROUP 8, TEMP 9.
std::span<const ClauseKeyword> clauseKeywords();

// A control character or a space (codes 1 to 32).
bool isClauseBlank(char16_t c);
// A character that belongs to a word.
bool isWordLetter(char16_t c);
// The keyword number of a word (any case), or 0 when it is no clause keyword.
int32_t clauseKeywordNumber(std::u16string_view word);
// The table's upper-case spelling of a keyword; the word in upper case when it is not
// in the table.
std::u16string upperKeyword(std::u16string_view word);

// Finds a keyword at the top level of the statement, starting at `from`, and answers
// the position of its first letter. With a second keyword only the pair counts (blanks
// between them); with no keyword any keyword of the table is a hit. Parentheses nest,
// '...' and "..." are skipped (an unterminated one ends the search); a ")" at the top
// level shows the unbalanced-parenthesis message with the rest of the statement and ends the search.
std::optional<size_t> findClauseKeyword(std::u16string_view statement, size_t from,
                                        std::u16string_view keyword, std::u16string_view secondKeyword);

} // namespace tabra::query
