// Backslashes in string literals: standard SQL keeps them, the MySQL family (MySQL,
// MariaDB; the capability table's literalsMayEscapeBackslashes) reads them as escapes
// by default. The server's own answer says which.
#include "systable/system_table_literal.h"

#include "core/connection/capabilities.h"
#include "rowset/row_set.h"

namespace tabra::systable {
namespace {

constexpr size_t kAnswerCapacity = 10;

// Whether the session reads backslash escapes in literals (sql_mode without
// NO_BACKSLASH_ESCAPES): asked of the server itself, with a literal of two backslashes
// that comes back as one where they are read. A server that cannot tell is taken to
// read them, the family's default.
bool readsBackslashEscapes(SQLHDBC connection) {
    if (!connection::capabilities(connection).literalsMayEscapeBackslashes) return false;
    const auto answer = rowset::selectToText(connection, u"SELECT '\\\\'", u"\t", u"\n", kAnswerCapacity, u"*", 0);
    return !answer || *answer == u"\\";
}

} // namespace

std::u16string valueLiteralText(SQLHDBC connection, const char16_t *escapedValue) {
    std::u16string literal(escapedValue);
    if (!readsBackslashEscapes(connection)) return literal;
    for (size_t at = literal.find(u'\\'); at != literal.npos; at = literal.find(u'\\', at + 2))
        literal.insert(at, 1, u'\\');
    return literal;
}

} // namespace tabra::systable
