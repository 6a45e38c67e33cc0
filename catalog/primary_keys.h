// Primary keys from the catalog as C++: the key's columns in the driver's order, and
// the key's name. Both answer nullopt for a null connection, a driver without a
// primary-key catalog (quietly) or a failing catalog call (shown), and the empty text
// for a blank table. TABRA_FIELDS_QUOTE in flags quotes the names for the connection.
#pragma once

#include <sql.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::catalog {

// The columns joined by separator, as a buffer of capacity characters holds them.
std::optional<std::u16string> primaryKeyColumns(SQLHDBC connection, const char16_t *table, int32_t flags,
                                                std::u16string_view separator, int32_t capacity);

// The key's name (empty when the driver gives none), as capacity characters hold it.
std::optional<std::u16string> primaryKeyName(SQLHDBC connection, const char16_t *table, uint8_t flags,
                                             int32_t capacity);

} // namespace tabra::catalog
