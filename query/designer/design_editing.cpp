// Editing a design without a window.
#include "query/designer/design_editing.h"

#include "platform/text/bounded_text.h"
#include "platform/text/case_folding.h"
#include "query/descriptor_text.h"
#include "query/designer/join_tables.h"
#include "query/designer/statement_generation.h"
#include "sqltext/name_parts.h"
#include "sqltext/statement_formatter.h"

#include <algorithm>
#include <string>

namespace tabra::query::designer {

namespace {

using platform::equalIgnoringCase;
using platform::isBlank;

constexpr int32_t kExpressionCapacity = static_cast<int32_t>(kItemLength) + 1;

bool isAsciiLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

bool isQualifierTaken(const QueryDesign &design, std::u16string_view qualifier) {
    return std::any_of(design.tables.begin(), design.tables.end(),
                       [&](const TableEntry &table) { return equalIgnoringCase(qualifierOf(table), qualifier); });
}

// The expression with `from` replaced by `to` when it names `from`.
void renameIn(std::u16string &expression, std::u16string_view from, std::u16string_view to) {
    if (namesQualifier(expression, from)) expression.replace(0, from.size(), to);
}

// The column field that begins each line of a selection descriptor.
std::u16string renamedSelection(std::u16string_view selection, std::u16string_view from, std::u16string_view to) {
    std::u16string renamed;
    size_t start = 0;
    while (start <= selection.size()) {
        size_t end = selection.find_first_of(u"\n\v", start);
        std::u16string line(selection.substr(start, end == std::u16string_view::npos ? end : end - start));
        renameIn(line, from, to);
        renamed += line;
        if (end == std::u16string_view::npos) break;
        renamed += selection[end];
        start = end + 1;
    }
    return renamed;
}

} // namespace

std::u16string qualifierOf(const TableEntry &table) { return isBlank(table.alias) ? table.name : table.alias; }

std::vector<OfferedColumn> columnsOfTable(const QueryDesign &design, const TableEntry &table, const ColumnsOf &columnsOf,
                                          bool withAll) {
    std::u16string qualifier = qualifierOf(table);
    std::vector<OfferedColumn> offered;
    if (isBlank(table.name)) return offered;
    if (withAll) offered.push_back({sqltext::formatStatement(design.connection, u"%s.*", {qualifier.c_str()},
                                                             kExpressionCapacity),
                                    0});
    for (const CatalogColumn &column : columnsOf(table.name))
        offered.push_back({sqltext::formatStatement(design.connection, u"%s.%s", {qualifier.c_str(), column.name.c_str()},
                                                    kExpressionCapacity),
                           column.type});
    return offered;
}

std::vector<OfferedColumn> offeredColumns(const QueryDesign &design, const ColumnsOf &columnsOf, bool withAll,
                                          size_t except) {
    std::vector<OfferedColumn> offered;
    for (size_t i = 0; i < design.tables.size(); ++i) {
        if (i == except) continue;
        auto columns = columnsOfTable(design, design.tables[i], columnsOf, withAll);
        offered.insert(offered.end(), columns.begin(), columns.end());
    }
    return offered;
}

std::u16string columnListText(const std::vector<OfferedColumn> &columns) {
    std::u16string list;
    for (const OfferedColumn &column : columns) {
        if (!list.empty()) list += kFieldSeparator;
        std::string type = std::to_string(column.type);
        list += column.expression + kFieldSeparator + std::u16string(type.begin(), type.end());
    }
    return list;
}

std::u16string proposedAlias(const QueryDesign &design, std::u16string_view name) {
    std::u16string bare = sqltext::stripDelimiters(design.connection, name);
    if (size_t point = bare.rfind(u'.'); point != std::u16string::npos) bare.erase(0, point + 1);
    char16_t first = !bare.empty() && isAsciiLetter(bare.front()) ? static_cast<char16_t>(bare.front() | 0x20) : u't';
    std::u16string alias(1, first);
    for (int number = 2; isQualifierTaken(design, alias); ++number) {
        std::string digits = std::to_string(number);
        if (digits.find('0') != std::string::npos) continue; // the alias alphabet has no 0
        alias = std::u16string(1, first) + std::u16string(digits.begin(), digits.end());
    }
    return alias;
}

TableEntry newTableEntry(const QueryDesign &design, std::u16string_view name, const ColumnsOf &columnsOf) {
    TableEntry entry;
    entry.name = name;
    entry.alias = proposedAlias(design, name);
    if (design.tables.empty()) return entry;
    std::vector<CatalogColumn> own = columnsOf(entry.name);
    for (auto earlier = design.tables.rbegin(); earlier != design.tables.rend(); ++earlier) {
        std::vector<CatalogColumn> theirs = columnsOf(earlier->name);
        for (const CatalogColumn &column : own) {
            bool shared = std::any_of(theirs.begin(), theirs.end(),
                                      [&](const CatalogColumn &other) { return equalIgnoringCase(other.name, column.name); });
            if (!shared) continue;
            entry.joinType = joinTypeCodeOf(u"IJ");
            entry.comparison = kEqual;
            entry.leftColumn = qualifierOf(*earlier) + u"." + column.name;
            entry.rightColumn = qualifierOf(entry) + u"." + column.name;
            return entry;
        }
    }
    return entry;
}

bool namesQualifier(std::u16string_view expression, std::u16string_view qualifier) {
    return !qualifier.empty() && expression.size() > qualifier.size() && expression[qualifier.size()] == u'.' &&
           equalIgnoringCase(expression.substr(0, qualifier.size()), qualifier);
}

void removeTable(QueryDesign &design, size_t index) {
    if (index >= design.tables.size()) return;
    std::u16string qualifier = qualifierOf(design.tables[index]);
    design.tables.erase(design.tables.begin() + static_cast<std::ptrdiff_t>(index));
    if (isQualifierTaken(design, qualifier)) return; // another table answers to it still
    std::erase_if(design.columns, [&](const ColumnEntry &column) { return namesQualifier(column.expression, qualifier); });
    std::erase_if(design.sortOrder, [&](const SortEntry &sort) { return namesQualifier(sort.column, qualifier); });
    // A join on the removed table has nothing to join to: the table becomes a plain one
    // (else a table that moves up to the first place would start the FROM list with a
    // join keyword).
    for (TableEntry &table : design.tables)
        if (namesQualifier(table.leftColumn, qualifier) || namesQualifier(table.rightColumn, qualifier)) {
            table.joinType = kPlainTable;
            table.comparison = kEqual;
            table.leftColumn.clear();
            table.rightColumn.clear();
        }
}

void renameQualifier(QueryDesign &design, std::u16string_view from, std::u16string_view to) {
    if (from.empty() || from == to) return;
    for (ColumnEntry &column : design.columns) renameIn(column.expression, from, to);
    for (SortEntry &sort : design.sortOrder) renameIn(sort.column, from, to);
    for (TableEntry &table : design.tables) {
        renameIn(table.leftColumn, from, to);
        renameIn(table.rightColumn, from, to);
    }
    design.selection = renamedSelection(design.selection, from, to);
}

} // namespace tabra::query::designer
