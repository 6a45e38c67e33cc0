// Editing a design as the designer dialog does, without a window: the columns the
// tables of a design offer, new tables with a proposed alias and join, removing and
// renaming tables, and moving entries within a list.
#pragma once

#include "query/designer/query_design.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::query::designer {

// A column of a table, its name prepared for SQL, with its ODBC SQL type.
struct CatalogColumn {
    std::u16string name;
    int32_t type = 0;
};

// The columns of a table as a table entry names it (none for a table the catalog does
// not know).
using ColumnsOf = std::function<std::vector<CatalogColumn>(const std::u16string &table)>;

// A column the designer offers: "qualifier.column" ("%s.%s") with the column's type,
// or "qualifier.*" ("%s.*") with type 0.
struct OfferedColumn {
    std::u16string expression;
    int32_t type = 0;

    bool operator==(const OfferedColumn &) const = default;
};

inline constexpr size_t kEveryTable = static_cast<size_t>(-1);

// What names a table's columns in the statement: its alias, else its name.
std::u16string qualifierOf(const TableEntry &table);

// The columns of a table entry, qualified; "qualifier.*" first when withAll.
std::vector<OfferedColumn> columnsOfTable(const QueryDesign &design, const TableEntry &table, const ColumnsOf &columnsOf,
                                          bool withAll);
// The columns of every table of the design in list order (but the table at index
// `except`).
std::vector<OfferedColumn> offeredColumns(const QueryDesign &design, const ColumnsOf &columnsOf, bool withAll,
                                          size_t except = kEveryTable);
// Offered columns as a column list "expression\ttype\texpression\ttype..." (the form
// of condition rows).
std::u16string columnListText(const std::vector<OfferedColumn> &columns);

// An alias for a new table: the first letter of its bare name in lower case ("t" when
// it begins with no ASCII letter), followed by 2, 3, ... (never a 0) while a table of
// the design has that qualifier.
std::u16string proposedAlias(const QueryDesign &design, std::u16string_view name);

// A new table entry for the name, with its proposed alias. When a table already in
// the design has a column of the same name as one of the new table's (the latest such
// table; the new table's columns in catalog order), the new table is inner-joined to
// it on that column.
TableEntry newTableEntry(const QueryDesign &design, std::u16string_view name, const ColumnsOf &columnsOf);

// Whether an expression or column names the qualifier ("q.x", "q.*"; case ignored).
bool namesQualifier(std::u16string_view expression, std::u16string_view qualifier);

// Removes the table at index with the result and sort columns that name it; a table
// joined to it becomes a plain table.
void removeTable(QueryDesign &design, size_t index);

// Writes `to` for the qualifier `from` wherever the design names it: result and sort
// columns, the join columns of every table and the columns of the selection.
void renameQualifier(QueryDesign &design, std::u16string_view from, std::u16string_view to);

// Moves entry `from` of a list before the entry `before` (the list's size: to the
// end) and answers its new index.
template <class Entry> size_t moveEntry(std::vector<Entry> &list, size_t from, size_t before) {
    if (from >= list.size()) return from;
    if (before > list.size()) before = list.size();
    Entry moved = std::move(list[from]);
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(from));
    size_t at = before > from ? before - 1 : before;
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(at), std::move(moved));
    return at;
}

} // namespace tabra::query::designer
