// Building the export's SELECT.
#include "wizards/export/export_select.h"

#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "query/condition_text.h"
#include "sqltext/sql92_names.h"
#include "sqltext/statement_formatter.h"

namespace tabra::wizards::exporting {
namespace {

constexpr int32_t kStatementCapacity = 10000;
constexpr int32_t kNameCapacity = 100;  // a quoted column name
constexpr int32_t kTableCapacity = 100; // the FROM clause

} // namespace

std::optional<std::u16string> exportSelect(SQLHDBC connection, const std::u16string &table,
                                           const ExportFieldList &fields, const std::u16string &condition) {
    if (Ostrel_IsBlankString(table.c_str())) return std::nullopt;
    std::u16string statement = u"SELECT ";
    // Appends are bounded by the statement's buffer and cut silently.
    auto append = [&](std::u16string_view piece) {
        statement.append(platform::boundedPrefix(piece, kStatementCapacity - statement.size()));
    };
    bool first = true;
    std::u16string name;
    for (const ExportField *field : fields.selected()) {
        if (!first) append(u", ");
        first = false;
        sqltext::prepareNameForSql92(connection, field->name.c_str(), kNameCapacity, name);
        append(name);
    }
    append(sqltext::formatStatement(connection, u" FROM %t", {table.c_str()}, kTableCapacity));
    std::u16string clause = query::whereText(connection, condition, kStatementCapacity, query::kStandardExpansion);
    if (!clause.empty()) {
        append(u" WHERE (");
        append(clause);
        append(u")");
    }
    return statement;
}

} // namespace tabra::wizards::exporting
