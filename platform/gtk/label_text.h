// Window texts as GTK shows them: UTF-8, with the "&" mnemonics of dialog templates
// and menus turned into GTK's "_" mnemonics.
#pragma once

#include <string>
#include <string_view>

namespace tabra::gtk {

// UTF-16 text as UTF-8 (ill-formed UTF-16 shows U+FFFD).
std::string utf8(std::u16string_view text);
// UTF-8 from GTK as UTF-16; null is empty.
std::u16string utf16(const char *text);

// A label with a mnemonic: "&Name" -> "_Name", "&&" -> "&", "_" -> "__" (a literal
// underscore); a "&" at the very end is dropped. Only the first mnemonic marks a key,
// as in Win32; later ones show as plain letters.
std::string mnemonicLabel(std::u16string_view text);
// The same text without mnemonic marks ("&Name" -> "Name", "&&" -> "&"), for places
// that take no mnemonic (window titles, list entries keep their "&" as it is).
std::string plainLabel(std::u16string_view text);

} // namespace tabra::gtk
