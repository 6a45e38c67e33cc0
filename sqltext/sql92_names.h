// Names prepared with the connection's identifier quote string: the C++ side of
// Tabra_PrepareNameForSql92, which every subsystem that writes a user's name into SQL
// uses.
#pragma once

#include "sqltext/bare_names.h"

#include <sql.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::sqltext {

// The name prepared for the connection as a destination of size characters would hold
// it (at most size - 1 characters): each dotted part freed of surrounding spaces and
// quote characters and quoted again unless "*", blank or a plain identifier that may
// stay bare on the database (sqltext/bare_names.h); a driver that does not
// quote gets the name as it stands; a blank (or null) name gives the empty text. The
// quote string is asked again on every call.
std::u16string prepareNameForSql92(SQLHDBC connection, const char16_t *name, int32_t size);
// The same into out (its room is reused).
void prepareNameForSql92(SQLHDBC connection, const char16_t *name, int32_t size, std::u16string &out);
// The same with the bare-name rules of the caller's call, for callers that prepare
// several names in one call (the driver is then asked for them once).
void prepareNameForSql92(SQLHDBC connection, const char16_t *name, int32_t size, std::u16string &out,
                         BareNameRules &rules);

// A separated list with each item (split at inputSeparator, 199 characters each)
// prepared as above and joined by outputSeparator, as a list buffer of size
// characters holds it: a separator is written while at least 3 characters remain (and
// not counted), an item only when it fits whole; blank items stay empty.
std::u16string prepareNameList(SQLHDBC connection, std::u16string_view list, int32_t size, char16_t inputSeparator,
                               char16_t outputSeparator);

} // namespace tabra::sqltext
