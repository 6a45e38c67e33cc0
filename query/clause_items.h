// Splitting a clause into its items (at ",") and an item into words (at " "),
// honouring the connection's quoted identifiers but not parentheses or literals:
// COUNT(a,b) splits at its comma, which is accepted.
#pragma once

#include "tabra_base.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tabra::query {

// The connection's identifier quote character, or 0 (no connection, none known).
char16_t identifierQuote(SQLHDBC connection);

// The items of text separated by `separator` outside quoted identifiers, each cut to
// `limit` characters. An empty text has no items; a separator at the end adds none.
std::vector<std::u16string> clauseItems(std::u16string_view text, char16_t separator, char16_t quote, size_t limit);

// An item prepared for word splitting: leading blanks skipped, every blank a space.
std::u16string normalizedItem(std::u16string_view item);

// The words of an item split at " " (empty ones skipped, quoted identifiers whole),
// each cut to limit characters.
std::vector<std::u16string> itemWords(std::u16string_view item, char16_t quote, size_t limit);
// word equals the upper-case word, ASCII letters compared without case.
bool isWord(std::u16string_view word, std::u16string_view upper);

// The items of a clause (at ",", 199 characters each).
std::vector<std::u16string> clauseItemsOf(SQLHDBC connection, std::u16string_view clause);
// Column and alias of a column-list item ("price AS p", "price p", "price"), words of
// 99 characters; the alias is empty when there is none.
std::pair<std::u16string, std::u16string> columnAndAlias(std::u16string_view item, char16_t quote);
// The table of a table-list item: the first word, or the second behind "OUTER".
std::u16string tableOfItem(std::u16string_view item, char16_t quote);
// Column (99) and direction word (19) of a sort-list item.
std::pair<std::u16string, std::u16string> sortColumnAndDirection(std::u16string_view item, char16_t quote);
bool isDescending(std::u16string_view direction);

} // namespace tabra::query
