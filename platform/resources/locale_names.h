// What the system knows about languages: the ISO 639-1 codes, and the mapping of
// locale names ("de-DE", "fr") and POSIX locale values ("de_DE.UTF-8") to them.
// This stands in for the locale database that a language choice consults.
#pragma once

#include <string>
#include <string_view>

namespace tabra::platform {

// True for a two-letter ISO 639-1 language code (lower case).
bool isIso639Language(std::string_view code);

// The ISO 639-1 code of a locale name's language part ("de-DE" -> "de", "FR" ->
// "fr"), or empty when the system does not know the name: the language part is not
// a known code, or the rest is not made of "-" or "_" separated subtags of 1 to 8
// letters or digits. Only the language part is checked against the table.
std::string languageOfLocaleName(std::string_view localeName);

// The user-interface locale name for a POSIX locale value: "de_DE.UTF-8@euro" ->
// "de-DE", "fr" -> "fr"; "C", "POSIX" and their variants ("C.UTF-8") -> "en". The
// codeset and modifier are dropped, the language is written in lower case and a
// two-letter region in upper case. Empty when the language is unknown.
std::string uiLocaleNameFromPosix(std::string_view posixLocale);

} // namespace tabra::platform
