// Taking prepared names apart again: stripping delimiters and splitting a qualified
// name into schema and table.
#include "sqltext/name_parts.h"

#include "core/connection/connection_info.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/identifier_rules.h"
#include "tabra_sqltext.h"

#include <string>

namespace tabra::sqltext {
namespace {

constexpr size_t kPartLength = 199;

bool isBlankCharacter(char16_t c) { return c >= 1 && c <= 32; }

} // namespace

std::u16string stripDelimiters(SQLHDBC connection, std::u16string_view name) {
    // The answer is not tested: without a connection no quote character is known and
    // only the blanks are trimmed.
    const char16_t quote = connection::identifierQuote(connection).first();
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
    return joined;
}

SchemaAndTable splitSchemaAndTable(SQLHDBC connection, std::u16string_view name) {
    size_t dot = name.find(u'.');
    bool schemasKnown = connection == SQL_NULL_HDBC || connection::schemaUsage(connection) != 0;
    if (!schemasKnown || dot == std::u16string_view::npos) return {u"", std::u16string(name)};
    size_t next = name.find(u'.', dot + 1);
    return {std::u16string(name.substr(0, dot)),
            std::u16string(name.substr(dot + 1, next == std::u16string_view::npos ? next : next - dot - 1))};
}

} // namespace tabra::sqltext

using namespace tabra::sqltext;

extern "C" void Tabra_StripDelimitersFromName(SQLHDBC connection, char16_t *name) {
    if (name == nullptr) return;
    // Never longer than the input, so it fits where the name was.
    const std::u16string stripped = stripDelimiters(connection, name);
    stripped.copy(name, stripped.size());
    name[stripped.size()] = u'\0';
}

extern "C" void Tabra_StripBracketsFromSqlName(char16_t *name) { Tabra_StripDelimitersFromName(nullptr, name); }

extern "C" void Tabra_ParseSchemaAndTable(SQLHDBC connection, const char16_t *name, char16_t *schema,
                                          int32_t schemaSize, char16_t *table, int32_t tableSize) {
    if (schema == nullptr || schemaSize < 2 || table == nullptr || tableSize < 2) return;
    const SchemaAndTable parts = splitSchemaAndTable(connection, tabra::platform::viewOf(name));
    OstrelCopyString(schema, parts.schema.c_str(), schemaSize);
    OstrelCopyString(table, parts.table.c_str(), tableSize);
}
