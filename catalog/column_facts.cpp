// Column facts from the result-set description of a prepared, never executed
// "SELECT column FROM table": data type, length, nullability, updatability, case
// sensitivity and the auto-increment property. No row is ever fetched.
#include "catalog/column_facts.h"

#include "catalog/table_existence.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/result_column_attribute.h"
#include "core/odbc/statement_runner.h"
#include "ostrel.h"
#include "sqltext/statement_formatter.h"
#include "tabra_catalog.h"

#include <algorithm>
#include <optional>
#include <string>

using namespace tabra::odbc;
using tabra::sqltext::formatStatement;

namespace {

constexpr int32_t kStatementCapacity = 300;
constexpr int32_t kStarStatementCapacity = 200;

// The auto-increment property as Tabra_IsColumnAutoIncrement asks it: with the ODBC 3
// call alone.
std::optional<SQLLEN> autoUniqueValue(SQLHSTMT statement) {
    SQLLEN value = 0;
    if (!succeeded(SQLColAttributeW(statement, 1, SQL_DESC_AUTO_UNIQUE_VALUE, nullptr, SQL_IS_INTEGER, nullptr,
                                    &value)))
        return std::nullopt;
    return value;
}

// A statement prepared for the column's description; empty (failure shown) when the
// arguments are missing, no handle could be had or the prepare failed. The failures
// are shown without the statement text.
struct DescribedColumn {
    StatementRunner statement;
    bool ready = false;
    SQLHSTMT handle() const { return statement.handle(); }
    void show() { statement.fail(SQL_ERROR); }
};

DescribedColumn describe(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    DescribedColumn described{StatementRunner(connection, nullptr)};
    if (connection == SQL_NULL_HDBC || table == nullptr || table[0] == u'\0' || column == nullptr ||
        column[0] == u'\0')
        return described;
    if (described.statement.allocate() != RunResult::Done) return described;
    const std::u16string text = formatStatement(connection, u"SELECT %f FROM %t", {column, table}, kStatementCapacity);
    described.ready =
        described.statement.check(SQLPrepareW(described.handle(), sqlText(text.c_str()), SQL_NTS)) == RunResult::Done;
    return described;
}

} // namespace

namespace tabra::catalog {

int32_t columnDataType(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return 0;
    auto value = resultColumnAttribute(described.handle(), 1, SQL_COLUMN_TYPE);
    return value ? static_cast<int32_t>(*value) : 0;
}

int32_t columnLength(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return -1;
    auto value = resultColumnAttribute(described.handle(), 1, SQL_COLUMN_LENGTH);
    return value ? static_cast<int32_t>(*value) : -1;
}

std::optional<ColumnProperties> columnProperties(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return std::nullopt;
    SQLHSTMT statement = described.handle();
    auto asFlag = [](std::optional<SQLLEN> value) { return value && *value != 0 ? 1u : 0u; };
    ColumnProperties properties{};
    properties.sqlType = static_cast<int32_t>(resultColumnAttribute(statement, 1, SQL_COLUMN_TYPE).value_or(0));
    properties.autoIncrement = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_AUTO_INCREMENT));
    properties.caseSensitive = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_CASE_SENSITIVE));
    properties.length = static_cast<int32_t>(resultColumnAttribute(statement, 1, SQL_COLUMN_LENGTH).value_or(0));
    properties.nullable = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_NULLABLE));
    properties.updatable = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_UPDATABLE));
    return properties;
}

bool isAutoIncrementColumn(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return false;
    auto value = autoUniqueValue(described.handle());
    if (!value) {
        described.show();
        return false;
    }
    return *value != 0;
}

bool isUpdatableColumn(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return false;
    // The type is asked first and its answer left aside: one driver here describes the
    // column only on the first attribute question and answers that first question about
    // updatability with "read-only" whatever the column is.
    resultColumnAttribute(described.handle(), 1, SQL_COLUMN_TYPE);
    auto value = resultColumnAttribute(described.handle(), 1, SQL_COLUMN_UPDATABLE);
    if (!value) {
        described.show();
        return false;
    }
    return *value != 0;
}

std::optional<std::u16string> firstAutoIncrementColumn(SQLHDBC connection, const char16_t *table, int32_t capacity) {
    if (connection == SQL_NULL_HDBC || table == nullptr || table[0] == u'\0' || capacity < 1 ||
        findInTableList(connection, TABRA_TABLE_TYPE_ALL, nullptr, 0, table) != 1)
        return std::nullopt;
    const std::u16string text = formatStatement(connection, u"SELECT * FROM %t", {table}, kStarStatementCapacity);
    StatementRunner statement(connection, text.c_str());
    if (statement.allocate() != RunResult::Done ||
        statement.check(SQLPrepareW(statement.handle(), sqlText(text.c_str()), SQL_NTS)) != RunResult::Done)
        return std::nullopt;
    auto count = resultColumnAttribute(statement.handle(), 0, SQL_COLUMN_COUNT);
    if (!count) {
        statement.fail(SQL_ERROR);
        return std::nullopt;
    }
    for (SQLLEN column = 1; column <= *count; ++column) {
        auto column16 = static_cast<SQLUSMALLINT>(column);
        auto automatic = resultColumnAttribute(statement.handle(), column16, SQL_COLUMN_AUTO_INCREMENT);
        if (!automatic) {
            statement.fail(SQL_ERROR);
            return std::nullopt;
        }
        if (*automatic == 0) continue;
        // The capacity goes to the driver unchanged, as a byte count.
        std::u16string name(static_cast<size_t>(capacity), u'\0');
        if (statement.check(resultColumnName(statement.handle(), column16, name.data(),
                                             static_cast<SQLSMALLINT>(std::min(capacity, int32_t{32767})),
                                             nullptr)) != RunResult::Done)
            return std::nullopt;
        name.resize(std::char_traits<char16_t>::length(name.c_str()));
        return name;
    }
    return std::nullopt;
}

} // namespace tabra::catalog

using namespace tabra::catalog;

extern "C" int32_t Tabra_GetColumnDataType(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    return columnDataType(connection, table, column);
}

extern "C" int32_t Tabra_GetColumnLength(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    return columnLength(connection, table, column);
}

extern "C" int32_t Tabra_GetColumnProperties(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                             ColumnProperties *properties) {
    if (properties == nullptr) return 2;
    const auto read = columnProperties(connection, table, column);
    *properties = read.value_or(ColumnProperties{});
    return read ? 1 : 2;
}

extern "C" int32_t Tabra_IsColumnAutoIncrement(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    return isAutoIncrementColumn(connection, table, column) ? 1 : 0;
}

extern "C" int32_t Tabra_IsColumnUpdateable(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    return isUpdatableColumn(connection, table, column) ? 1 : 0;
}

extern "C" int32_t Tabra_FindFirstAutoIncrementField(SQLHDBC connection, const char16_t *table, char16_t *output,
                                                     int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    const auto name = firstAutoIncrementColumn(connection, table, capacity);
    if (!name) return 2;
    OstrelCopyString(output, name->c_str(), capacity);
    return 1;
}
