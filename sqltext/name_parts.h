// Taking prepared names apart again: the C++ side of Tabra_StripDelimitersFromName and
// Tabra_ParseSchemaAndTable.
#pragma once

#include <sql.h>

#include <string>
#include <string_view>

namespace tabra::sqltext {

// The name with blanks (codes 1 to 32) and then one quote character removed from both
// ends of each dotted part (parts cut to 199 characters), joined by "." again. Without
// a connection no quote character is known and only the blanks go.
std::u16string stripDelimiters(SQLHDBC connection, std::u16string_view name);

struct SchemaAndTable {
    std::u16string schema;
    std::u16string table;
};

// A qualified name split at its first ".": the schema before it, the table up to the
// next ".". With a connection whose schema usage is 0, or a name without ".", the
// schema is empty and the table is the whole name. No connection: split anyway.
SchemaAndTable splitSchemaAndTable(SQLHDBC connection, std::u16string_view name);

} // namespace tabra::sqltext
