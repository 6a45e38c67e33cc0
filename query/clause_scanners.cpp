// The scanners: result column names, table names and sort columns of a statement.
#include "ostrel_text.h"
#include "query/clause_editing.h"
#include "query/clause_items.h"
#include "query/wide_buffer.h"
#include "tabra_query.h"
#include "tabra_sqltext.h"

namespace {

using namespace tabra::query;

constexpr size_t kItemLength = 199;




class Joined {
public:
    explicit Joined(const char16_t *separator) : separator_(separator ? separator : u",") {}
    void add(const std::u16string &text) {
        if (!text_.empty()) text_ += separator_;
        text_ += text;
    }
    const std::u16string &text() const { return text_; }

private:
    std::u16string separator_;
    std::u16string text_;
};

bool badOutput(char16_t *out, int32_t outChars) {
    if (out == nullptr || outChars < 1) return true;
    out[0] = u'\0';
    return false;
}

} // namespace


extern "C" int32_t Tabra_SelectScanFieldsClause(SQLHDBC connection, const char16_t *statement,
                                                const char16_t *separator, uint32_t, char16_t *out,
                                                int32_t outChars) {
    if (badOutput(out, outChars)) return -1;
    if (statement == nullptr || statement[0] == u'\0') return 0;
    std::optional<std::u16string> clause = extractClause(statement, u"SELECT", u"");
    if (!clause || !extractClause(statement, u"FROM", u"")) return -1;
    char16_t quote = identifierQuote(connection);
    Joined names(separator);
    for (const std::u16string &item : clauseItemsOf(connection, *clause)) {
        std::vector<std::u16string> parts = itemWords(normalizedItem(item), quote, kItemLength);
        if (parts.empty()) continue;
        std::u16string name = strippedName(connection, parts.back());
        if (!name.empty()) names.add(name);
    }
    OstrelCopyString(out, names.text().c_str(), outChars);
    return 0;
}

extern "C" int32_t Tabra_SelectScanTablesClause(SQLHDBC connection, const char16_t *statement,
                                                const char16_t *separator, uint32_t, char16_t *out,
                                                int32_t outChars) {
    if (badOutput(out, outChars)) return -1;
    if (statement == nullptr || statement[0] == u'\0') return 0;
    std::optional<std::u16string> clause = extractClause(statement, u"FROM", u"");
    if (!clause || !extractClause(statement, u"SELECT", u"")) return -1;
    char16_t quote = identifierQuote(connection);
    Joined names(separator);
    for (const std::u16string &item : clauseItemsOf(connection, *clause)) {
        std::u16string name = strippedName(connection, tableOfItem(item, quote));
        if (!name.empty()) names.add(name);
    }
    OstrelCopyString(out, names.text().c_str(), outChars);
    return 0;
}

extern "C" int32_t Tabra_SelectScanOrderByClause(SQLHDBC connection, const char16_t *statement,
                                                 const char16_t *separator, uint32_t flags, char16_t *out,
                                                 int32_t outChars) {
    if (badOutput(out, outChars)) return -1;
    if (statement == nullptr || statement[0] == u'\0') return 0;
    std::optional<std::u16string> clause = extractClause(statement, u"ORDER", u"BY");
    if (!clause) return 0;
    char16_t quote = identifierQuote(connection);
    Joined names(separator);
    for (const std::u16string &item : clauseItemsOf(connection, *clause)) {
        auto [column, direction] = sortColumnAndDirection(item, quote);
        std::u16string name = strippedName(connection, column);
        if (name.empty()) continue;
        if ((flags & TABRA_SCAN_DESC_WORD) && isDescending(direction)) name += u" DESC";
        if (flags & TABRA_SCAN_DIRECTION_MARK) name += isDescending(direction) ? u"\tD" : u"\tA";
        names.add(name);
    }
    OstrelCopyString(out, names.text().c_str(), outChars);
    return 0;
}

extern "C" int32_t Tabra_Select_Scan_FieldsClause(const char16_t *statement, const char16_t *separator, int32_t,
                                                  char16_t *out, int32_t outChars) {
    return Tabra_SelectScanFieldsClause(nullptr, statement, separator, 0, out, outChars);
}

extern "C" int32_t Tabra_Select_Scan_TablesClause(const char16_t *statement, const char16_t *separator, int32_t,
                                                  char16_t *out, int32_t outChars) {
    return Tabra_SelectScanTablesClause(nullptr, statement, separator, 0, out, outChars);
}

extern "C" int32_t Tabra_Select_Scan_OrderByClause(const char16_t *statement, const char16_t *separator, int32_t,
                                                   char16_t *out, int32_t outChars) {
    return Tabra_SelectScanOrderByClause(nullptr, statement, separator, 0, out, outChars);
}
