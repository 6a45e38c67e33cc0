// Getting and replacing one clause of a SELECT statement, and moving WHERE behind
// FROM. Pure text; the exported Tabra_Select_* functions are thin wrappers.
#pragma once

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

} // namespace tabra::query
