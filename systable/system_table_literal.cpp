// Backslashes in string literals: standard SQL keeps them, the MySQL family (MySQL,
// MariaDB) reads them as escapes by default. The server's own answer says which.
#include "systable/system_table_literal.h"

#include "platform/text/case_folding.h"
#include "tabra_rowset.h"

#include <sqlext.h>

#include <string_view>

using tabra::platform::equalIgnoringCase;

namespace tabra::catalog {
namespace {

constexpr int32_t kAnswerCapacity = 10;

bool isMySqlFamily(SQLHDBC connection) {
    char16_t name[101] = {};
    SQLSMALLINT length = 0;
    if (SQLGetInfoW(connection, SQL_DBMS_NAME, name, 100, &length) != SQL_SUCCESS) return false;
    const std::u16string_view dbms(name);
    return equalIgnoringCase(dbms, u"MySQL") || equalIgnoringCase(dbms, u"MariaDB");
}

// Whether the session reads backslash escapes in literals (sql_mode without
// NO_BACKSLASH_ESCAPES): asked of the server itself, with a literal of two backslashes
// that comes back as one where they are read. A server that cannot tell is taken to
// read them, the family's default.
bool readsBackslashEscapes(SQLHDBC connection) {
    if (!isMySqlFamily(connection)) return false;
    char16_t answer[kAnswerCapacity] = {};
    if (OdbcEh_SelectRowSetToBuffer(0, connection, u"SELECT '\\\\'", u"\t", u"\n", answer, kAnswerCapacity, u"*",
                                    0) != 1)
        return true;
    return std::u16string_view(answer) == u"\\";
}

} // namespace

std::u16string valueLiteralText(SQLHDBC connection, const char16_t *escapedValue) {
    std::u16string literal(escapedValue);
    if (!readsBackslashEscapes(connection)) return literal;
    for (size_t at = literal.find(u'\\'); at != literal.npos; at = literal.find(u'\\', at + 2))
        literal.insert(at, 1, u'\\');
    return literal;
}

} // namespace tabra::catalog
