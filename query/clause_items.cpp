// Items of a clause and words of an item.
#include "query/clause_items.h"

#include "core/connection/connection_info.h"
#include "query/clause_keywords.h"

namespace tabra::query {

char16_t identifierQuote(SQLHDBC connection) { return connection::identifierQuote(connection).splittingQuote(); }

std::vector<std::u16string> clauseItems(std::u16string_view text, char16_t separator, char16_t quote, size_t limit) {
    std::vector<std::u16string> items;
    size_t cursor = 0;
    while (cursor < text.size()) {
        std::u16string item;
        bool inside = false;
        for (; cursor < text.size(); ++cursor) {
            char16_t c = text[cursor];
            if (quote != u'\0' && c == quote) inside = !inside;
            if (c == separator && !inside) break;
            if (item.size() < limit) item += c;
        }
        if (cursor < text.size()) ++cursor; // past the separator
        items.push_back(std::move(item));
    }
    return items;
}

std::u16string normalizedItem(std::u16string_view item) {
    size_t start = 0;
    while (start < item.size() && isClauseBlank(item[start])) ++start;
    std::u16string text(item.substr(start));
    for (char16_t &c : text)
        if (isClauseBlank(c)) c = u' ';
    return text;
}

namespace {

constexpr size_t kItemLength = 199;
constexpr size_t kNameLength = 99;
constexpr size_t kDirectionLength = 19;

} // namespace

std::vector<std::u16string> itemWords(std::u16string_view item, char16_t quote, size_t limit) {
    std::vector<std::u16string> found;
    for (std::u16string &word : clauseItems(item, u' ', quote, limit))
        if (!word.empty()) found.push_back(std::move(word));
    return found;
}

bool isWord(std::u16string_view word, std::u16string_view upper) {
    if (word.size() != upper.size()) return false;
    for (size_t i = 0; i < word.size(); ++i) {
        char16_t c = word[i] >= u'a' && word[i] <= u'z' ? static_cast<char16_t>(word[i] - 32) : word[i];
        if (c != upper[i]) return false;
    }
    return true;
}

// Column and alias of one item of a column list ("price AS p", "price p", "price").
std::pair<std::u16string, std::u16string> columnAndAlias(std::u16string_view item, char16_t quote) {
    std::vector<std::u16string> parts = itemWords(normalizedItem(item), quote, kNameLength);
    std::u16string column = parts.size() > 0 ? parts[0] : u"";
    std::u16string alias = parts.size() > 1 ? parts[1] : u"";
    if (isWord(alias, u"AS")) alias = parts.size() > 2 ? parts[2] : u"";
    return {column, alias};
}

// The table name of one item of a table list, "OUTER" skipped, alias dropped.
std::u16string tableOfItem(std::u16string_view item, char16_t quote) {
    std::vector<std::u16string> parts = itemWords(normalizedItem(item), quote, kNameLength);
    if (parts.empty()) return {};
    if (isWord(parts[0], u"OUTER")) return parts.size() > 1 ? parts[1] : u"";
    return parts[0];
}

// Column and direction word of one item of a sort list.
std::pair<std::u16string, std::u16string> sortColumnAndDirection(std::u16string_view item, char16_t quote) {
    std::vector<std::u16string> parts = itemWords(normalizedItem(item), quote, kNameLength);
    std::u16string column = parts.size() > 0 ? parts[0] : u"";
    std::u16string direction = parts.size() > 1 ? parts[1].substr(0, kDirectionLength) : u"";
    return {column, direction};
}

bool isDescending(std::u16string_view direction) { return isWord(direction, u"DESC"); }

std::vector<std::u16string> clauseItemsOf(SQLHDBC connection, std::u16string_view clause) {
    return clauseItems(clause, u',', identifierQuote(connection), kItemLength);
}

} // namespace tabra::query
