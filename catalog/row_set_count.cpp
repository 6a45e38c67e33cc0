// The number of rows a SELECT would return, counted by the database: the statement's
// column list becomes Count(*) and its sort clause goes. A UNION query is not counted:
// it answers a sentinel at once.
#include "catalog/number_text.h"
#include "catalog/single_value_query.h"
#include "ostrel.h"
#include "tabra_catalog.h"
#include "tabra_query.h"

#include <new>
#include <string_view>
#include <vector>

namespace {

constexpr int32_t kStatementCapacity = 30000;

bool isBlankOrControl(char16_t c) { return c >= 1 && c <= 32; }

// True when the first "UNION" (case-sensitive) is not at the very start and stands
// between blanks or control characters.
bool isUnionQuery(std::u16string_view statement) {
    auto at = statement.find(u"UNION");
    if (at == std::u16string_view::npos || at == 0) return false;
    auto after = at + 5;
    return isBlankOrControl(statement[at - 1]) && after < statement.size() && isBlankOrControl(statement[after]);
}

} // namespace

extern "C" int32_t Tabra_GetRowSetCount(SQLHDBC connection, const char16_t *statement) {
    if (connection == SQL_NULL_HDBC || statement == nullptr || statement[0] == u'\0') return 0;
    if (isUnionQuery(statement)) return TABRA_UNION_ROW_COUNT;
    std::vector<char16_t> text;
    try {
        text.assign(kStatementCapacity, u'\0');
    } catch (const std::bad_alloc &) {
        return 0;
    }
    OstrelCopyString(text.data(), statement, kStatementCapacity);
    if (Tabra_Select_Replace_FieldsClause(text.data(), kStatementCapacity, u"Count(*)", 0) < 0) return 0;
    if (Tabra_Select_Replace_OrderByClause(text.data(), kStatementCapacity, u"", 0) < 0) return 0;
    auto value = tabra::catalog::querySingleValue(connection, text.data(), kStatementCapacity);
    return value ? tabra::catalog::readLong(value->c_str()) : 0;
}
