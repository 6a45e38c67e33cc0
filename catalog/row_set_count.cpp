// The number of rows a SELECT would return, counted by the database. Where the
// database's row has a count statement the SELECT is counted whole as a derived table
// (right for DISTINCT, GROUP BY and LIMIT); elsewhere its column list becomes Count(*)
// and its sort clause goes. A UNION query is not counted: it answers a sentinel at once.
#include "catalog/number_text.h"
#include "catalog/single_value_query.h"
#include "core/connection/capabilities.h"
#include "platform/text/bounded_text.h"
#include "query/clause_editing.h"
#include "tabra_catalog.h"

#include <string_view>

namespace {

using tabra::query::replaceSelectClause;
using tabra::query::SelectClause;

constexpr size_t kStatementCapacity = 30000;

bool isBlankOrControl(char16_t c) { return c >= 1 && c <= 32; }

// True when the first "UNION" (case-sensitive) is not at the very start and stands
// between blanks or control characters.
bool isUnionQuery(std::u16string_view statement) {
    auto at = statement.find(u"UNION");
    if (at == std::u16string_view::npos || at == 0) return false;
    auto after = at + 5;
    return isBlankOrControl(statement[at - 1]) && after < statement.size() && isBlankOrControl(statement[after]);
}

// The count statement with the SELECT in the place of its "%s", without the blanks and
// semicolons that may end the SELECT (they cannot stand inside parentheses), bounded
// by the statement capacity.
std::u16string countOfDerivedTable(std::u16string_view format, std::u16string_view statement) {
    size_t end = statement.find_last_not_of(u" \t\r\n;");
    statement = statement.substr(0, end == std::u16string_view::npos ? 0 : end + 1);
    std::u16string text(format);
    auto at = text.find(u"%s");
    if (at != std::u16string::npos) text.replace(at, 2, statement);
    return std::u16string(tabra::platform::boundedPrefix(text, kStatementCapacity));
}

} // namespace

extern "C" int32_t Tabra_GetRowSetCount(SQLHDBC connection, const char16_t *statement) {
    if (connection == SQL_NULL_HDBC || statement == nullptr || statement[0] == u'\0') return 0;
    if (isUnionQuery(statement)) return TABRA_UNION_ROW_COUNT;
    const char16_t *derivedTableCount = tabra::connection::capabilities(connection).rowSetCountStatement;
    std::u16string text;
    if (derivedTableCount != nullptr) {
        text = countOfDerivedTable(derivedTableCount, statement);
    } else {
        text = tabra::platform::boundedPrefix(statement, kStatementCapacity);
        replaceSelectClause(text, SelectClause::Fields, u"Count(*)", kStatementCapacity);
        replaceSelectClause(text, SelectClause::OrderBy, u"", kStatementCapacity);
    }
    auto value = tabra::catalog::querySingleValue(connection, text.c_str());
    return value ? tabra::catalog::readLong(value->c_str()) : 0;
}
