// Whether a text reaches the driver unchanged. The driver manager hands the text of an
// ANSI driver (the SQLite3 driver here) over in the process's character set
// (LC_CTYPE): in the C locale everything beyond ASCII is lost or replaced, and even in
// a UTF-8 locale characters beyond the Basic Multilingual Plane cannot pass. Unicode
// drivers get the text as it is. The library tells the user instead of storing
// something else (the statement runner refuses such a statement with message
// kTextNotCarried), and it makes a C or POSIX character type C.UTF-8 when it loads
// (core/module/character_type.h).
#pragma once

#include <sql.h>

#include <string_view>

namespace tabra::connection {

// True when every character of text reaches the connection's driver unchanged: always
// for ASCII text (nothing is asked then); otherwise the text's other characters are
// handed to the driver manager and driver and back (SQLNativeSqlW, which runs nothing)
// and must return as they went. A driver that does not answer that call is trusted.
bool textSurvives(SQLHDBC connection, std::u16string_view text);

} // namespace tabra::connection
