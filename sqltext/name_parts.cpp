// Taking prepared names apart again: stripping delimiters and splitting a qualified
// name into schema and table.
#include "ostrel.h"
#include "sqltext/identifier_rules.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"

#include <string>

using namespace tabra::sqltext;

namespace {

constexpr size_t kPartLength = 199;

bool isBlankCharacter(char16_t c) { return c >= 1 && c <= 32; }

} // namespace

extern "C" void Tabra_StripDelimitersFromName(SQLHDBC connection, char16_t *name) {
    if (name == nullptr) return;
    // The reply is not tested: without a connection no quote character is known and
    // only the blanks are trimmed.
    char16_t reply[11] = {}; // 10 handed over; some drivers count it in characters
    SQLSMALLINT length = 0;
    if (connection != SQL_NULL_HDBC) SQLGetInfoW(connection, SQL_IDENTIFIER_QUOTE_CHAR, reply, 10, &length);
    char16_t quote = reply[0];

    std::u16string joined;
    bool first = true;
    for (std::u16string part : splitDottedParts(name, kPartLength)) {
        size_t begin = 0;
        while (begin < part.size() && isBlankCharacter(part[begin])) ++begin;
        if (begin < part.size() && quote != u'\0' && part[begin] == quote) ++begin;
        size_t end = part.size();
        while (end > begin && isBlankCharacter(part[end - 1])) --end;
        if (end > begin && quote != u'\0' && part[end - 1] == quote) --end;
        if (!first) joined += u'.';
        first = false;
        joined.append(part, begin, end - begin);
    }
    // Never longer than the input, so it fits where the name was.
    joined.copy(name, joined.size());
    name[joined.size()] = u'\0';
}

extern "C" void Tabra_StripBracketsFromSqlName(char16_t *name) { Tabra_StripDelimitersFromName(nullptr, name); }

extern "C" void Tabra_ParseSchemaAndTable(SQLHDBC connection, const char16_t *name, char16_t *schema,
                                          int32_t schemaSize, char16_t *table, int32_t tableSize) {
    if (schema == nullptr || schemaSize < 2 || table == nullptr || tableSize < 2) return;
    std::u16string text = name ? std::u16string(name) : std::u16string();
    size_t dot = text.find(u'.');
    bool schemasKnown = connection == SQL_NULL_HDBC || Tabra_GetSchemaUsage(connection) != 0;
    if (!schemasKnown || dot == std::u16string::npos) {
        OstrelCopyString(schema, u"", schemaSize);
        OstrelCopyString(table, text.c_str(), tableSize);
        return;
    }
    size_t next = text.find(u'.', dot + 1);
    std::u16string tablePart = text.substr(dot + 1, next == std::u16string::npos ? next : next - dot - 1);
    OstrelCopyString(schema, text.substr(0, dot).c_str(), schemaSize);
    OstrelCopyString(table, tablePart.c_str(), tableSize);
}
