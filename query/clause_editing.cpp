// Clause get and replace on SELECT statements, and their exported wrappers.
#include "query/clause_editing.h"

#include "ostrel_text.h"
#include "platform/text/bounded_text.h"
#include "query/clause_keywords.h"
#include "query/wide_buffer.h"
#include "tabra_query.h"

namespace tabra::query {

namespace {

size_t skipBlanks(std::u16string_view text, size_t position) {
    while (position < text.size() && isClauseBlank(text[position])) ++position;
    return position;
}

// Where the clause behind the keyword at `keywordStart` begins (past the keyword(s)
// and blanks) and where the next clause keyword starts (or the end).
struct ClauseBounds {
    size_t begin;
    size_t next; // npos: no further keyword
};

ClauseBounds clauseBounds(std::u16string_view statement, size_t keywordStart, std::u16string_view keyword,
                          std::u16string_view secondKeyword) {
    size_t begin = skipBlanks(statement, keywordStart + keyword.size());
    if (!secondKeyword.empty()) begin = skipBlanks(statement, std::min(statement.size(), begin + secondKeyword.size()));
    std::optional<size_t> next = findClauseKeyword(statement, begin, u"", u"");
    return {begin, next ? *next : std::u16string_view::npos};
}

} // namespace

std::optional<std::u16string> extractClause(std::u16string_view statement, std::u16string_view keyword,
                                            std::u16string_view secondKeyword) {
    std::optional<size_t> found = findClauseKeyword(statement, 0, keyword, secondKeyword);
    if (!found) return std::nullopt;
    ClauseBounds bounds = clauseBounds(statement, *found, keyword, secondKeyword);
    size_t end = bounds.next == std::u16string_view::npos ? statement.size() : bounds.next;
    while (end > bounds.begin && isClauseBlank(statement[end - 1])) --end;
    if (end <= bounds.begin) return std::nullopt;
    return std::u16string(statement.substr(bounds.begin, end - bounds.begin));
}

bool replaceClause(std::u16string &statement, std::u16string_view keyword, std::u16string_view secondKeyword,
                   std::u16string_view newText) {
    if (keyword.empty()) return false;
    std::u16string upper = upperKeyword(keyword);
    std::u16string upperSecond = secondKeyword.empty() ? std::u16string() : upperKeyword(secondKeyword);
    std::optional<size_t> found = findClauseKeyword(statement, 0, keyword, secondKeyword);
    if (!found) {
        if (newText.empty()) return true;
        statement += u' ';
        statement += upper;
        if (!upperSecond.empty()) statement += u' ' + upperSecond;
        statement += u' ';
        statement += newText;
        return true;
    }
    const std::u16string copy = statement;
    ClauseBounds bounds = clauseBounds(copy, *found, keyword, secondKeyword);
    std::u16string remainder = bounds.next == std::u16string::npos ? std::u16string() : copy.substr(bounds.next);
    statement.resize(*found);
    bool alwaysWritten = upper == u"SELECT" || upper == u"FROM";
    if (alwaysWritten || !newText.empty()) statement += upper;
    if (!upperSecond.empty() && !newText.empty()) statement += u' ' + upperSecond;
    if (!newText.empty()) {
        statement += u' ';
        statement += newText;
    }
    if (!remainder.empty()) statement += u' ' + remainder;
    return true;
}

void normalizeWherePosition(std::u16string &statement) {
    std::optional<std::u16string> where = extractClause(statement, u"WHERE", u"");
    if (!where) return;
    std::optional<std::u16string> from = extractClause(statement, u"FROM", u"");
    if (!from) return;
    std::u16string combined = *from + u" WHERE " + *where;
    replaceClause(statement, u"WHERE", u"", u"");
    replaceClause(statement, u"FROM", u"", combined);
}

void ensureSelectFrom(std::u16string &statement) {
    if (!findClauseKeyword(statement, 0, u"SELECT", u"") || !findClauseKeyword(statement, 0, u"FROM", u""))
        statement = u"SELECT FROM";
}

void replaceSelectClause(std::u16string &statement, SelectClause clause, std::u16string_view newText,
                         size_t capacity) {
    struct Keywords {
        std::u16string_view keyword, second;
        bool safeguard, moveWhere;
    };
    static constexpr Keywords kKeywords[] = {
        {u"SELECT", u"", true, false}, {u"FROM", u"", true, false}, {u"WHERE", u"", false, true},
        {u"ORDER", u"BY", false, true}};
    const Keywords &k = kKeywords[static_cast<size_t>(clause)];
    auto cut = [capacity](std::u16string &text) {
        if (text.size() > capacity - 1) text.resize(capacity - 1);
    };
    if (k.safeguard) {
        ensureSelectFrom(statement);
        cut(statement);
    }
    replaceClause(statement, k.keyword, k.second, newText);
    cut(statement);
    if (k.moveWhere) normalizeWherePosition(statement);
    // What the caller's buffer keeps of it: a cut that never splits a surrogate pair.
    statement.resize(platform::cutLength(statement, capacity - 1));
}

int32_t replaceSelectClause(char16_t *statement, int32_t capacity, SelectClause clause, const char16_t *newText) {
    if (statement == nullptr || capacity < 1) return -1;
    std::u16string text = readBounded(statement, capacity);
    replaceSelectClause(text, clause, newText ? std::u16string_view(newText) : std::u16string_view(),
                        static_cast<size_t>(capacity));
    OstrelCopyString(statement, text.c_str(), capacity);
    return 0;
}

} // namespace tabra::query

using namespace tabra::query;

extern "C" int32_t Tabra_Select_Get_Clause(const char16_t *statement, const char16_t *keyword,
                                           const char16_t *secondKeyword, char16_t *out, int32_t outChars) {
    if (out == nullptr || outChars < 1) return -1;
    out[0] = u'\0';
    if (statement == nullptr || keyword == nullptr || keyword[0] == u'\0') return 0;
    std::optional<std::u16string> clause = extractClause(statement, keyword, secondKeyword ? secondKeyword : u"");
    if (clause) OstrelCopyString(out, clause->c_str(), outChars);
    return 0;
}

extern "C" int32_t Tabra_Select_Replace_FieldsClause(char16_t *statement, int32_t capacity, const char16_t *fields,
                                                     int32_t) {
    return replaceSelectClause(statement, capacity, SelectClause::Fields, fields);
}

extern "C" int32_t Tabra_Select_Replace_TablesClause(char16_t *statement, int32_t capacity,
                                                     const char16_t *tables) {
    return replaceSelectClause(statement, capacity, SelectClause::Tables, tables);
}

extern "C" int32_t Tabra_Select_Replace_WhereClause(char16_t *statement, int32_t capacity,
                                                    const char16_t *condition) {
    return replaceSelectClause(statement, capacity, SelectClause::Where, condition);
}

extern "C" int32_t Tabra_Select_Replace_OrderByClause(char16_t *statement, int32_t capacity,
                                                      const char16_t *sortList, int32_t) {
    return replaceSelectClause(statement, capacity, SelectClause::OrderBy, sortList);
}
