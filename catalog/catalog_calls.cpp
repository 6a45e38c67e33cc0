// Catalog calls with the library's argument conventions.
#include "catalog/catalog_calls.h"

#include "catalog/table_type_flags.h"
#include "core/odbc/odbc_text.h"
#include "ostrel.h"

#include <string>

namespace tabra::catalog {

using odbc::sqlText;

int32_t textLength(const char16_t *text) {
    return text ? static_cast<int32_t>(std::char_traits<char16_t>::length(text)) : 0;
}

SQLRETURN callTables(SQLHSTMT statement, const char16_t *schema, int32_t typeFlags) {
    bool withSchema = !Ostrel_IsBlankString(schema);
    auto types = tableTypeList(typeFlags);
    return SQLTablesW(statement, nullptr, 0, withSchema ? sqlText(schema) : nullptr,
                      withSchema ? static_cast<SQLSMALLINT>(textLength(schema)) : 0, nullptr, 0,
                      types ? sqlText(types->c_str()) : nullptr, types ? SQL_NTS : 0);
}

SQLRETURN callColumns(SQLHSTMT statement, const char16_t *schema, const char16_t *table) {
    bool withSchema = !Ostrel_IsBlankString(schema);
    return SQLColumnsW(statement, nullptr, 0, withSchema ? sqlText(schema) : nullptr,
                       withSchema ? static_cast<SQLSMALLINT>(textLength(schema)) : 0, sqlText(table), SQL_NTS,
                       nullptr, 0);
}

} // namespace tabra::catalog
