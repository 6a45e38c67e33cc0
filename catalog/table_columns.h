// A table's columns as the column catalog lists them, in its order: name, ODBC SQL type
// and column size (0 when the catalog has none).
#pragma once

#include <sql.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tabra::catalog {

struct CatalogColumn {
    std::u16string name;
    int32_t sqlType = 0;
    int32_t size = 0;
};

// nullopt after a failure (shown); an empty list for a table without columns.
std::optional<std::vector<CatalogColumn>> tableColumns(SQLHDBC connection, const char16_t *table);

} // namespace tabra::catalog
