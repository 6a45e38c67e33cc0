// The statement formatter: the C++ side of Tabra_SprintfSqlStatement, through which
// every statement built from user-chosen names goes.
#pragma once

#include <sql.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace tabra::sqltext {

// The statement of format as a destination of size characters would hold it: %t and
// %f take the next argument as a name prepared for the connection, %s copies the next
// argument (at most 299 characters), %. writes "." when the last argument taken was
// not blank, any other "%x" vanishes; up to seven arguments are used (null ones count
// as empty). A piece that does not fit ends the statement there.
std::u16string formatStatement(SQLHDBC connection, const char16_t *format,
                               std::initializer_list<const char16_t *> arguments, int32_t size);

} // namespace tabra::sqltext
