// The clause keyword table and the top-level keyword scanner.
#include "query/clause_keywords.h"

#include "core/resource_ids.h"
#include "tabra_connection.h"

#include <array>
#include <cwctype>
#include <string>

namespace tabra::query {

namespace {

constexpr std::array<ClauseKeyword, 9> kKeywords{{{u"SELECT", 1},
                                                  {u"FROM", 2},
                                                  {u"ORDER", 3},
                                                  {u"BY", 4},
                                                  {u"HAVING", 5},
                                                  {u"INTO", 6},
                                                  {u"WHERE", 7},
                                                  {u"GROUP", 8},
                                                  {u"TEMP", 9}}};

// Words are compared on their first 99 characters.
constexpr size_t kWordCompareLength = 99;

char16_t upperAscii(char16_t c) { return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c; }

bool equalsIgnoringCase(std::u16string_view word, std::u16string_view keyword) {
    word = word.substr(0, kWordCompareLength);
    if (word.size() != keyword.size()) return false;
    for (size_t i = 0; i < word.size(); ++i)
        if (upperAscii(word[i]) != upperAscii(keyword[i])) return false;
    return true;
}

size_t wordEnd(std::u16string_view text, size_t start) {
    while (start < text.size() && isWordLetter(text[start])) ++start;
    return start;
}

} // namespace

std::span<const ClauseKeyword> clauseKeywords() { return kKeywords; }

bool isClauseBlank(char16_t c) { return c >= 1 && c <= 32; }

bool isWordLetter(char16_t c) {
    // Surrogate halves are no letters; everything else is classified by the C library.
    if (c >= 0xD800 && c <= 0xDFFF) return false;
    return std::iswalpha(static_cast<wint_t>(c)) != 0;
}

int32_t clauseKeywordNumber(std::u16string_view word) {
    for (const ClauseKeyword &keyword : kKeywords)
        if (equalsIgnoringCase(word, keyword.text)) return keyword.number;
    return 0;
}

std::u16string upperKeyword(std::u16string_view word) {
    for (const ClauseKeyword &keyword : kKeywords)
        if (equalsIgnoringCase(word, keyword.text)) return std::u16string(keyword.text);
    std::u16string upper(word);
    for (char16_t &c : upper) c = upperAscii(c);
    return upper;
}

std::optional<size_t> findClauseKeyword(std::u16string_view statement, size_t from,
                                        std::u16string_view keyword, std::u16string_view secondKeyword) {
    int depth = 0;
    size_t i = from;
    while (i < statement.size()) {
        char16_t c = statement[i];
        if (c == u'"' || c == u'\'') {
            size_t close = statement.find(c, i + 1);
            if (close == std::u16string_view::npos) return std::nullopt;
            i = close + 1;
            continue;
        }
        if (c == u'(') {
            ++depth;
            ++i;
            continue;
        }
        if (c == u')') {
            if (depth == 0) {
                std::u16string rest(statement.substr(i));
                ShowMessage(core::ids::kMessage.unbalancedParenthesis, rest.c_str(), nullptr, nullptr);
                return std::nullopt;
            }
            --depth;
            ++i;
            continue;
        }
        if (depth > 0 || !isWordLetter(c)) {
            ++i;
            continue;
        }
        size_t end = wordEnd(statement, i);
        std::u16string_view word = statement.substr(i, end - i);
        if (keyword.empty()) {
            if (clauseKeywordNumber(word) != 0) return i;
        } else if (equalsIgnoringCase(word, keyword)) {
            if (secondKeyword.empty()) return i;
            size_t next = end;
            while (next < statement.size() && isClauseBlank(statement[next])) ++next;
            size_t nextEnd = wordEnd(statement, next);
            if (equalsIgnoringCase(statement.substr(next, nextEnd - next), secondKeyword)) return i;
            // The walk goes on from the start of the word that did not match.
            i = next;
            continue;
        }
        i = end;
    }
    return std::nullopt;
}

} // namespace tabra::query
