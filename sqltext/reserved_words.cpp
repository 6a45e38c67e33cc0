// ODBC's reserved keywords and lookups in word lists.
#include "sqltext/reserved_words.h"

#include <algorithm>
#include <array>

namespace tabra::sqltext {
namespace {

// ODBC's list of reserved keywords, in code order (END-EXEC is left out: no plain
// identifier can be it).
constexpr std::array<std::u16string_view, 235> kOdbcReservedWords = {
    u"ABSOLUTE", u"ACTION", u"ADA", u"ADD", u"ALL", u"ALLOCATE", u"ALTER", u"AND", u"ANY", u"ARE", u"AS", u"ASC",
    u"ASSERTION", u"AT", u"AUTHORIZATION", u"AVG", u"BEGIN", u"BETWEEN", u"BIT", u"BIT_LENGTH", u"BOTH", u"BY",
    u"CASCADE", u"CASCADED", u"CASE", u"CAST", u"CATALOG", u"CHAR", u"CHARACTER", u"CHARACTER_LENGTH", u"CHAR_LENGTH",
    u"CHECK", u"CLOSE", u"COALESCE", u"COLLATE", u"COLLATION", u"COLUMN", u"COMMIT", u"CONNECT", u"CONNECTION",
    u"CONSTRAINT", u"CONSTRAINTS", u"CONTINUE", u"CONVERT", u"CORRESPONDING", u"COUNT", u"CREATE", u"CROSS",
    u"CURRENT", u"CURRENT_DATE", u"CURRENT_TIME", u"CURRENT_TIMESTAMP", u"CURRENT_USER", u"CURSOR", u"DATE", u"DAY",
    u"DEALLOCATE", u"DEC", u"DECIMAL", u"DECLARE", u"DEFAULT", u"DEFERRABLE", u"DEFERRED", u"DELETE", u"DESC",
    u"DESCRIBE", u"DESCRIPTOR", u"DIAGNOSTICS", u"DISCONNECT", u"DISTINCT", u"DOMAIN", u"DOUBLE", u"DROP", u"ELSE",
    u"END", u"ESCAPE", u"EXCEPT", u"EXCEPTION", u"EXEC", u"EXECUTE", u"EXISTS", u"EXTERNAL", u"EXTRACT", u"FALSE",
    u"FETCH", u"FIRST", u"FLOAT", u"FOR", u"FOREIGN", u"FORTRAN", u"FOUND", u"FROM", u"FULL", u"GET", u"GLOBAL",
    u"GO", u"GOTO", u"GRANT", u"GROUP", u"HAVING", u"HOUR", u"IDENTITY", u"IMMEDIATE", u"IN", u"INCLUDE", u"INDEX",
    u"INDICATOR", u"INITIALLY", u"INNER", u"INPUT", u"INSENSITIVE", u"INSERT", u"INT", u"INTEGER", u"INTERSECT",
    u"INTERVAL", u"INTO", u"IS", u"ISOLATION", u"JOIN", u"KEY", u"LANGUAGE", u"LAST", u"LEADING", u"LEFT", u"LEVEL",
    u"LIKE", u"LOCAL", u"LOWER", u"MATCH", u"MAX", u"MIN", u"MINUTE", u"MODULE", u"MONTH", u"NAMES", u"NATIONAL",
    u"NATURAL", u"NCHAR", u"NEXT", u"NO", u"NONE", u"NOT", u"NULL", u"NULLIF", u"NUMERIC", u"OCTET_LENGTH", u"OF",
    u"ON", u"ONLY", u"OPEN", u"OPTION", u"OR", u"ORDER", u"OUTER", u"OUTPUT", u"OVERLAPS", u"PAD", u"PARTIAL",
    u"PASCAL", u"PLI", u"POSITION", u"PRECISION", u"PREPARE", u"PRESERVE", u"PRIMARY", u"PRIOR", u"PRIVILEGES",
    u"PROCEDURE", u"PUBLIC", u"READ", u"REAL", u"REFERENCES", u"RELATIVE", u"RESTRICT", u"REVOKE", u"RIGHT",
    u"ROLLBACK", u"ROWS", u"SCHEMA", u"SCROLL", u"SECOND", u"SECTION", u"SELECT", u"SESSION", u"SESSION_USER", u"SET",
    u"SIZE", u"SMALLINT", u"SOME", u"SPACE", u"SQL", u"SQLCA", u"SQLCODE", u"SQLERROR", u"SQLSTATE", u"SQLWARNING",
    u"SUBSTRING", u"SUM", u"SYSTEM_USER", u"TABLE", u"TEMPORARY", u"THEN", u"TIME", u"TIMESTAMP", u"TIMEZONE_HOUR",
    u"TIMEZONE_MINUTE", u"TO", u"TRAILING", u"TRANSACTION", u"TRANSLATE", u"TRANSLATION", u"TRIM", u"TRUE", u"UNION",
    u"UNIQUE", u"UNKNOWN", u"UPDATE", u"UPPER", u"USAGE", u"USER", u"USING", u"VALUE", u"VALUES", u"VARCHAR",
    u"VARYING", u"VIEW", u"WHEN", u"WHENEVER", u"WHERE", u"WITH", u"WORK", u"WRITE", u"YEAR", u"ZONE",
};

char16_t asciiUpper(char16_t c) { return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c; }

// Compares as if both were in upper case (ASCII letters only).
int compareUpper(std::u16string_view a, std::u16string_view b) {
    for (size_t i = 0; i < a.size() && i < b.size(); ++i) {
        char16_t x = asciiUpper(a[i]), y = asciiUpper(b[i]);
        if (x != y) return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

} // namespace

bool isOdbcReservedWord(std::u16string_view name) {
    auto found = std::lower_bound(kOdbcReservedWords.begin(), kOdbcReservedWords.end(), name,
                                  [](std::u16string_view word, std::u16string_view key) { return compareUpper(word, key) < 0; });
    return found != kOdbcReservedWords.end() && compareUpper(*found, name) == 0;
}

bool isInWordList(std::u16string_view name, std::u16string_view list) {
    for (size_t start = 0; start <= list.size();) {
        size_t comma = list.find(u',', start);
        size_t end = comma == std::u16string_view::npos ? list.size() : comma;
        std::u16string_view word = list.substr(start, end - start);
        while (!word.empty() && word.front() == u' ') word.remove_prefix(1);
        while (!word.empty() && word.back() == u' ') word.remove_suffix(1);
        if (!word.empty() && compareUpper(word, name) == 0) return true;
        if (comma == std::u16string_view::npos) break;
        start = comma + 1;
    }
    return false;
}

} // namespace tabra::sqltext
