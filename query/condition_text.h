// Turning descriptors into SQL: the WHERE condition of a selection descriptor and the
// SET list of an operation descriptor.
#pragma once

#include "tabra_base.h"

#include <array>
#include <string>
#include <string_view>

namespace tabra::query {

// [0] any-string wildcard, [1] single-character wildcard (carried, unused),
// [2] opening and [3] closing quote of LIKE patterns.
using ExpansionChars = std::array<char16_t, 4>;
inline constexpr ExpansionChars kStandardExpansion{u'%', u'_', u'\'', u'\''};

// One selection line as SQL (at most 299 characters), or empty when it is dropped:
// empty column, unknown key, or a value missing where the operator needs one.
std::u16string conditionText(SQLHDBC connection, std::u16string_view line, const ExpansionChars &expansion);

// The condition of one group, "(a AND b)", or empty when no line yields text.
std::u16string groupText(SQLHDBC connection, std::u16string_view group, const ExpansionChars &expansion);

// The whole condition, groups joined by " OR ", bounded to room outChars.
std::u16string whereText(SQLHDBC connection, std::u16string_view descriptor, size_t outChars,
                         const ExpansionChars &expansion);

// The SET list of the first group, bounded to outChars.
std::u16string setText(SQLHDBC connection, std::u16string_view descriptor, size_t outChars);

} // namespace tabra::query
