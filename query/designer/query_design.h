// The query designer's model: a SELECT statement held as four lists (tables with their
// joins, result columns, selection, sort order) with the connection, schema and flags
// they are built for. The designer dialog edits these lists in place, on a copy (see
// design_copy.h). An empty text stands for a missing one throughout.
#pragma once

#include "tabra_base.h"
#include "tabra_designer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::query::designer {

inline constexpr size_t kSchemaLength = 99;            // characters of the schema kept
inline constexpr char16_t kViewTestName[] = u"__OSTREL_TEST__"; // the view a statement test creates

// Codes of the join types and comparisons (see join_tables.h for their keys and texts).
inline constexpr int32_t kPlainTable = 1; // listed after ", ", no ON condition
inline constexpr int32_t kEqual = 1;

// A table of the FROM part. Every table but a plain one is joined to the tables before
// it with the ON condition "left comparison right".
struct TableEntry {
    std::u16string name;
    std::u16string alias;
    int32_t joinType = kPlainTable;
    int32_t comparison = kEqual;
    std::u16string leftColumn;
    std::u16string rightColumn;

    bool operator==(const TableEntry &) const = default;
};

// A result column: an expression ("alias.column", "alias.*", as the dialog builds them)
// and the name it is shown under.
struct ColumnEntry {
    std::u16string expression;
    std::u16string alias;

    bool operator==(const ColumnEntry &) const = default;
};

// A sort column and its direction ("ASC", "DESC" or empty).
struct SortEntry {
    std::u16string column;
    std::u16string direction;

    bool operator==(const SortEntry &) const = default;
};

struct QueryDesign {
    QueryDesign(SQLHDBC connection, std::u16string_view schema, uint32_t flags)
        : connection(connection), schema(schema.substr(0, kSchemaLength)), flags(flags) {}

    // The statement defines a view: LIKE patterns follow the database, and the
    // statement test goes through a test view.
    bool buildsView() const { return (flags & TABRA_SELFACT_VIEW) != 0; }

    SQLHDBC connection;  // quoting of the selection, the database type, the statement test
    std::u16string schema; // schema of the test view, at most kSchemaLength characters
    uint32_t flags;
    HWND dialog = nullptr; // the designer dialog while it shows this design

    std::vector<TableEntry> tables;     // FROM
    std::vector<ColumnEntry> columns;   // the column list
    std::u16string selection;           // WHERE, as a selection descriptor
    std::vector<SortEntry> sortOrder;   // ORDER BY
};

} // namespace tabra::query::designer
