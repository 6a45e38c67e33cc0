// Statement generation. Each item is cut at kItemLength characters, each part at
// kPartLength, and the statement at the caller's capacity, all without error.
#include "query/designer/statement_generation.h"

#include "platform/text/bounded_text.h"
#include "platform/text/case_folding.h"
#include "query/designer/join_tables.h"
#include "tabra_connection.h"

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

std::u16string columnList(const QueryDesign &design) {
    std::u16string list;
    for (const ColumnEntry &column : design.columns) {
        std::u16string item = withAlias(column.expression, column.alias);
        if (&column != &design.columns.front()) list += u", ";
        list += cutTo(item, kItemLength);
    }
    return cutTo(list, kPartLength);
}

// Each table follows ", " when it is a plain table and " " when it is joined; a first
// table that is joined starts the list with its keyword, as stored.
std::u16string tableList(const QueryDesign &design) {
    std::u16string list;
    for (const TableEntry &table : design.tables) {
        const JoinType &join = joinTypeOf(table.joinType);
        std::u16string item;
        if (!join.keyword.empty()) (item += join.keyword) += u' ';
        item = withAlias(item + table.name, table.alias);
        if (join.code != kPlainTable)
            item += u" ON " + table.leftColumn + u" " + std::u16string(comparisonOf(table.comparison).symbol) +
                    u" " + table.rightColumn;
        if (&table != &design.tables.front()) list += join.code == kPlainTable ? u", " : u" ";
        list += cutTo(item, kItemLength);
    }
    return cutTo(list, kPartLength);
}

std::u16string condition(const QueryDesign &design) {
    if (isBlank(design.selection)) return {};
    std::u16string text = whereText(design.connection, design.selection, kPartLength + 1, expansionOf(design));
    return cutTo(text, kPartLength);
}

// A direction of ASC (in any case) is the default and is left out.
std::u16string sortList(const QueryDesign &design) {
    std::u16string list;
    for (const SortEntry &sort : design.sortOrder) {
        std::u16string item = sort.column;
        if (!isBlank(sort.direction) && !platform::equalIgnoringCase(sort.direction, u"ASC"))
            item += u" " + sort.direction;
        if (&sort != &design.sortOrder.front()) list += u", ";
        list += cutTo(item, kItemLength);
    }
    return cutTo(list, kPartLength);
}

} // namespace

ExpansionChars expansionOf(const QueryDesign &design) {
    ExpansionChars expansion = kStandardExpansion;
    if (design.buildsView() && Tabra_GetDatabaseType(design.connection) == DbAccess) expansion[0] = u'*';
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
