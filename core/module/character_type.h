// The process's character type (LC_CTYPE) as the library finds it when it loads. The
// driver manager converts the text of ANSI drivers through it, so in the C or POSIX
// locale of a program that never calls setlocale every character beyond ASCII would be
// lost on its way to such a driver. Like careful language runtimes, the library then
// switches the character type (only it) to C.UTF-8 when it loads. A program that sets
// its own locale afterwards keeps it; TABRA_COERCE_C_LOCALE=0 in the environment keeps
// the C locale (text that cannot pass is then refused with a message, see
// core/connection/text_transport.h).
#pragma once

namespace tabra::module {

// Makes a C or POSIX LC_CTYPE C.UTF-8 (or C.utf8) unless TABRA_COERCE_C_LOCALE is "0".
// Any other character type is left as it is. Returns true when it switched.
bool coerceCharacterType();

} // namespace tabra::module
