// The SELECT statement of a design, as text. The dialog shows it after every change
// and the statement test runs it.
#pragma once

#include "query/condition_text.h"
#include "query/designer/query_design.h"

#include <string>

namespace tabra::query::designer {

inline constexpr size_t kItemLength = 999;            // one column, table or sort item
inline constexpr size_t kPartLength = 9999;           // one part: column list, tables, condition, sort list
inline constexpr size_t kStatementCapacity = 10000;   // the statement the dialog shows and tests

// The LIKE expansion of the selection: when the design builds a view, the database's
// view wildcard as the any-string wildcard ("*" on DbAccess), "%" otherwise.
ExpansionChars expansionOf(const QueryDesign &design);

// A table's item of the table list: the join keyword, the name, " AS " and the alias,
// and for a join " ON " and its condition (not cut).
std::u16string tableItem(const TableEntry &table);

// "SELECT" and the parts that are not blank: " " and the columns, " FROM " and the
// tables, " WHERE " and the selection's condition, " ORDER BY " and the sort columns;
// cut to capacity - 1 characters (empty for a capacity below 1).
std::u16string statementText(const QueryDesign &design, size_t capacity = kStatementCapacity);

} // namespace tabra::query::designer
