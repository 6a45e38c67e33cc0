// Statement generation. Each item is cut at kItemLength characters, each part at
// kPartLength, and the statement at the caller's capacity, all without error.
#include "query/designer/statement_generation.h"

#include "core/connection/capabilities.h"
#include "platform/text/bounded_text.h"
#include "platform/text/case_folding.h"
#include "query/designer/join_tables.h"
#include "tabra_connection.h"

#include <utility>

namespace tabra::query::designer {

namespace {

using platform::isBlank;

std::u16string &cutTo(std::u16string &text, size_t length) {
    text.resize(platform::cutLength(text, length));
    return text;
}

std::u16string withAlias(std::u16string item, const std::u16string &alias) {
    if (!isBlank(alias)) item += u" AS " + alias;
    return item;
}

// A list of items: each cut at kItemLength, joined by separators, the whole cut at
// kPartLength (items that would start beyond it are not built up at all).
class ItemList {
public:
    void add(std::u16string_view separator, std::u16string item) {
        if (text_.size() >= kPartLength) return;
        if (items_++ > 0) text_ += separator;
        text_ += cutTo(item, kItemLength);
    }
    std::u16string text() { return cutTo(text_, kPartLength); }

private:
    std::u16string text_;
    size_t items_ = 0;
};

std::u16string columnList(const QueryDesign &design) {
    ItemList list;
    for (const ColumnEntry &column : design.columns) list.add(u", ", withAlias(column.expression, column.alias));
    return list.text();
}

// Each table follows ", " when it is a plain table and " " when it is joined; a first
// table that is joined starts the list with its keyword, as stored.
std::u16string tableList(const QueryDesign &design) {
    ItemList list;
    for (const TableEntry &table : design.tables)
        list.add(joinTypeOf(table.joinType).code == kPlainTable ? u", " : u" ", tableItem(table));
    return list.text();
}

std::u16string condition(const QueryDesign &design) {
    if (isBlank(design.selection)) return {};
    std::u16string text = whereText(design.connection, design.selection, kPartLength + 1, expansionOf(design));
    return cutTo(text, kPartLength);
}

// A direction of ASC (in any case) is the default and is left out.
std::u16string sortList(const QueryDesign &design) {
    ItemList list;
    for (const SortEntry &sort : design.sortOrder) {
        std::u16string item = sort.column;
        if (!isBlank(sort.direction) && !platform::equalIgnoringCase(sort.direction, u"ASC"))
            item += u" " + sort.direction;
        list.add(u", ", std::move(item));
    }
    return list.text();
}

} // namespace

std::u16string tableItem(const TableEntry &table) {
    const JoinType &join = joinTypeOf(table.joinType);
    std::u16string item(join.keyword);
    if (!item.empty()) item += u' ';
    item = withAlias(item + table.name, table.alias);
    if (join.code != kPlainTable)
        item += u" ON " + table.leftColumn + u" " + std::u16string(comparisonOf(table.comparison).symbol) + u" " +
                table.rightColumn;
    return item;
}

ExpansionChars expansionOf(const QueryDesign &design) {
    ExpansionChars expansion = kStandardExpansion;
    if (design.buildsView()) expansion[0] = connection::capabilities(design.connection).viewPatternWildcard;
    return expansion;
}

std::u16string statementText(const QueryDesign &design, size_t capacity) {
    std::u16string statement = u"SELECT";
    auto append = [&statement](std::u16string_view lead, const std::u16string &part) {
        if (!isBlank(part)) (statement += lead) += part;
    };
    append(u" ", columnList(design));
    append(u" FROM ", tableList(design));
    append(u" WHERE ", condition(design));
    append(u" ORDER BY ", sortList(design));
    return cutTo(statement, capacity > 0 ? capacity - 1 : 0);
}

} // namespace tabra::query::designer
