// The alias alphabet: the characters aliases and the names of the query tools may
// hold (letters, the digits 1 to 9 and "_"; never 0), and the edit filter built on it.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string_view>

namespace tabra::query {

bool isAliasText(std::u16string_view text);

// For an edit's EN_CHANGE: a typed character outside the alphabet beeps and is taken
// back.
void takeBackForeignCharacter(HWND dialog, int32_t edit);

} // namespace tabra::query
