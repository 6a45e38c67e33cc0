// The scanners: result column names, table names and sort columns of a statement.
#include "ostrel_text.h"
#include "query/clause_editing.h"
#include "query/clause_items.h"
#include "query/clause_scanners.h"
#include "platform/text/bounded_text.h"
#include "sqltext/name_parts.h"
#include "tabra_query.h"

#include <optional>

namespace {

using namespace tabra::query;
using tabra::sqltext::stripDelimiters;

constexpr size_t kItemLength = 199;

// What a scan reads: its clause, the clause that must be there too (none for the sort
// scan, which has no failure of its own), and the name of one item.
struct ClauseScan {
    std::u16string_view keyword, secondKeyword, required;
    std::u16string (*name)(SQLHDBC connection, const std::u16string &item, char16_t quote, uint32_t flags);
};

std::u16string resultName(SQLHDBC connection, const std::u16string &item, char16_t quote, uint32_t) {
    std::vector<std::u16string> parts = itemWords(normalizedItem(item), quote, kItemLength);
    return parts.empty() ? std::u16string() : stripDelimiters(connection, parts.back());
}

std::u16string tableName(SQLHDBC connection, const std::u16string &item, char16_t quote, uint32_t) {
    return stripDelimiters(connection, tableOfItem(item, quote));
}

std::u16string sortName(SQLHDBC connection, const std::u16string &item, char16_t quote, uint32_t flags) {
    auto [column, direction] = sortColumnAndDirection(item, quote);
    std::u16string name = stripDelimiters(connection, column);
    if (name.empty()) return name;
    if ((flags & TABRA_SCAN_DESC_WORD) && isDescending(direction)) name += u" DESC";
    if (flags & TABRA_SCAN_DIRECTION_MARK) name += isDescending(direction) ? u"\tD" : u"\tA";
    return name;
}

constexpr ClauseScan kScans[] = {
    {u"SELECT", u"", u"FROM", resultName}, // ScannedClause::Fields
    {u"FROM", u"", u"SELECT", tableName},  // ScannedClause::Tables
    {u"ORDER", u"BY", u"", sortName},      // ScannedClause::OrderBy
};

} // namespace

namespace tabra::query {

std::optional<std::u16string> scanClause(SQLHDBC connection, std::u16string_view statement, ScannedClause which,
                                         std::u16string_view separator, uint32_t flags) {
    const ClauseScan &how = kScans[static_cast<size_t>(which)];
    if (statement.empty()) return std::u16string();
    std::optional<std::u16string> clause = extractClause(statement, how.keyword, how.secondKeyword);
    if (!clause) return how.required.empty() ? std::optional<std::u16string>(u"") : std::nullopt;
    if (!how.required.empty() && !extractClause(statement, how.required, u"")) return std::nullopt;
    const char16_t quote = identifierQuote(connection);
    std::u16string names;
    for (const std::u16string &item : clauseItemsOf(connection, *clause)) {
        std::u16string name = how.name(connection, item, quote, flags);
        if (name.empty()) continue;
        if (!names.empty()) names += separator;
        names += name;
    }
    return names;
}

} // namespace tabra::query

namespace {

// The scan into out: -1 for a bad output or a missing clause where one is required.
int32_t scan(ScannedClause which, SQLHDBC connection, const char16_t *statement, const char16_t *separator,
             uint32_t flags, char16_t *out, int32_t outChars) {
    if (out == nullptr || outChars < 1) return -1;
    out[0] = u'\0';
    const auto names = scanClause(connection, tabra::platform::viewOf(statement), which, separator ? separator : u",",
                                  flags);
    if (!names) return -1;
    OstrelCopyString(out, names->c_str(), outChars);
    return 0;
}

} // namespace

extern "C" int32_t Tabra_SelectScanFieldsClause(SQLHDBC connection, const char16_t *statement,
                                                const char16_t *separator, uint32_t flags, char16_t *out,
                                                int32_t outChars) {
    return scan(ScannedClause::Fields, connection, statement, separator, flags, out, outChars);
}

extern "C" int32_t Tabra_SelectScanTablesClause(SQLHDBC connection, const char16_t *statement,
                                                const char16_t *separator, uint32_t flags, char16_t *out,
                                                int32_t outChars) {
    return scan(ScannedClause::Tables, connection, statement, separator, flags, out, outChars);
}

extern "C" int32_t Tabra_SelectScanOrderByClause(SQLHDBC connection, const char16_t *statement,
                                                 const char16_t *separator, uint32_t flags, char16_t *out,
                                                 int32_t outChars) {
    return scan(ScannedClause::OrderBy, connection, statement, separator, flags, out, outChars);
}

extern "C" int32_t Tabra_Select_Scan_FieldsClause(const char16_t *statement, const char16_t *separator, int32_t,
                                                  char16_t *out, int32_t outChars) {
    return scan(ScannedClause::Fields, nullptr, statement, separator, 0, out, outChars);
}

extern "C" int32_t Tabra_Select_Scan_TablesClause(const char16_t *statement, const char16_t *separator, int32_t,
                                                  char16_t *out, int32_t outChars) {
    return scan(ScannedClause::Tables, nullptr, statement, separator, 0, out, outChars);
}

extern "C" int32_t Tabra_Select_Scan_OrderByClause(const char16_t *statement, const char16_t *separator, int32_t,
                                                   char16_t *out, int32_t outChars) {
    return scan(ScannedClause::OrderBy, nullptr, statement, separator, 0, out, outChars);
}
