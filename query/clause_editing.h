// Getting and replacing one clause of a SELECT statement, and moving WHERE behind
// FROM. Pure text; the exported Tabra_Select_* functions are thin wrappers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::query {

// The clause named by keyword (and second keyword, or empty): the text from behind the
// keyword(s) to the next clause keyword or the end, without surrounding blanks. No
// value when the keyword is missing or the clause has no characters.
std::optional<std::u16string> extractClause(std::u16string_view statement, std::u16string_view keyword,
                                            std::u16string_view secondKeyword);

// Replaces the clause in statement (newText empty: removes it). Keywords are written
// in upper case; a keyword other than SELECT and FROM is written only with a new
// text; a missing clause with a new text is appended at the end. The text between
// the statement before the keyword and the rest keeps its blanks, so removing a
// clause leaves two blanks. Returns false only for an empty keyword.
bool replaceClause(std::u16string &statement, std::u16string_view keyword, std::u16string_view secondKeyword,
                   std::u16string_view newText);

// When the statement has both a WHERE and a FROM clause, removes the WHERE clause and
// puts it directly behind the table list.
void normalizeWherePosition(std::u16string &statement);

// Makes sure the statement has the keywords SELECT and FROM; when one of them is
// missing the statement becomes "SELECT FROM".
void ensureSelectFrom(std::u16string &statement);

// The clauses the Tabra_Select_Replace_* operations edit.
enum class SelectClause {
    Fields,  // SELECT: the statement is made "SELECT FROM" first when a keyword is missing
    Tables,  // FROM: likewise
    Where,   // WHERE: afterwards the WHERE clause is moved behind the table list
    OrderBy, // ORDER BY: likewise
};

// Replaces the clause (an empty text removes it) in a statement that must stay within
// capacity characters (at least 1), terminator included: each step is cut to
// capacity - 1 characters, the last without splitting a surrogate pair.
void replaceSelectClause(std::u16string &statement, SelectClause clause, std::u16string_view newText,
                         size_t capacity);

// The same on a caller's buffer of capacity characters; -1 for a null buffer or a
// capacity below 1, else 0.
int32_t replaceSelectClause(char16_t *statement, int32_t capacity, SelectClause clause, const char16_t *newText);

} // namespace tabra::query
