// Column facts from the result-set description of a prepared, never executed
// "SELECT column FROM table": data type, length, nullability, updatability, case
// sensitivity and the auto-increment property. No row is ever fetched.
#include "catalog/result_column_attribute.h"
#include "core/odbc/odbc_text.h"
#include "core/odbc/statement_handle.h"
#include "ostrel.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "tabra_sqltext.h"

#include <algorithm>
#include <optional>

using tabra::catalog::resultColumnAttribute;
using tabra::catalog::resultColumnName;
using tabra::odbc::sqlText;
using tabra::odbc::StatementHandle;
using tabra::odbc::succeeded;

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
// arguments are missing, no handle could be had or the prepare failed.
struct DescribedColumn {
    StatementHandle statement;
    bool ready = false;
};

DescribedColumn describe(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    DescribedColumn described;
    if (connection == SQL_NULL_HDBC || table == nullptr || table[0] == u'\0' || column == nullptr ||
        column[0] == u'\0')
        return described;
    if (!succeeded(described.statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return described;
    }
    char16_t text[kStatementCapacity];
    Tabra_SprintfSqlStatement(connection, text, kStatementCapacity, u"SELECT %f FROM %t", column, table, nullptr,
                              nullptr, nullptr, nullptr, nullptr, nullptr);
    if (!succeeded(SQLPrepareW(described.statement.get(), sqlText(text), SQL_NTS))) {
        Tabra_DisplayErrorHstmt(described.statement.get(), nullptr);
        return described;
    }
    described.ready = true;
    return described;
}

} // namespace

extern "C" int32_t Tabra_GetColumnDataType(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return 0;
    auto value = resultColumnAttribute(described.statement.get(), 1, SQL_COLUMN_TYPE);
    return value ? static_cast<int32_t>(*value) : 0;
}

extern "C" int32_t Tabra_GetColumnLength(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return -1;
    auto value = resultColumnAttribute(described.statement.get(), 1, SQL_COLUMN_LENGTH);
    return value ? static_cast<int32_t>(*value) : -1;
}

extern "C" int32_t Tabra_GetColumnProperties(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                             ColumnProperties *properties) {
    if (properties == nullptr) return 2;
    *properties = ColumnProperties{};
    auto described = describe(connection, table, column);
    if (!described.ready) return 2;
    SQLHSTMT statement = described.statement.get();
    auto asFlag = [](std::optional<SQLLEN> value) { return value && *value != 0 ? 1u : 0u; };
    properties->sqlType = static_cast<int32_t>(resultColumnAttribute(statement, 1, SQL_COLUMN_TYPE).value_or(0));
    properties->autoIncrement = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_AUTO_INCREMENT));
    properties->caseSensitive = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_CASE_SENSITIVE));
    properties->length = static_cast<int32_t>(resultColumnAttribute(statement, 1, SQL_COLUMN_LENGTH).value_or(0));
    properties->nullable = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_NULLABLE));
    properties->updatable = asFlag(resultColumnAttribute(statement, 1, SQL_COLUMN_UPDATABLE));
    return 1;
}

extern "C" int32_t Tabra_IsColumnAutoIncrement(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return 0;
    auto value = autoUniqueValue(described.statement.get());
    if (!value) {
        Tabra_DisplayErrorHstmt(described.statement.get(), nullptr);
        return 0;
    }
    return *value != 0 ? 1 : 0;
}

extern "C" int32_t Tabra_IsColumnUpdateable(SQLHDBC connection, const char16_t *table, const char16_t *column) {
    auto described = describe(connection, table, column);
    if (!described.ready) return 0;
    // The type is asked first and its answer left aside: one driver here describes the
    // column only on the first attribute question and answers that first question about
    // updatability with "read-only" whatever the column is.
    resultColumnAttribute(described.statement.get(), 1, SQL_COLUMN_TYPE);
    auto value = resultColumnAttribute(described.statement.get(), 1, SQL_COLUMN_UPDATABLE);
    if (!value) {
        Tabra_DisplayErrorHstmt(described.statement.get(), nullptr);
        return 0;
    }
    return *value != 0 ? 1 : 0;
}

extern "C" int32_t Tabra_FindFirstAutoIncrementField(SQLHDBC connection, const char16_t *table, char16_t *output,
                                                     int32_t capacity) {
    if (output == nullptr || capacity < 1) return 2;
    output[0] = u'\0';
    if (connection == SQL_NULL_HDBC || table == nullptr || table[0] == u'\0' ||
        Tabra_DoesTableExist(connection, TABRA_TABLE_TYPE_ALL, table) != 1)
        return 2;
    char16_t text[kStarStatementCapacity];
    Tabra_SprintfSqlStatement(connection, text, kStarStatementCapacity, u"SELECT * FROM %t", table, nullptr,
                              nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    StatementHandle statement;
    if (!succeeded(statement.allocate(connection))) {
        Tabra_DisplayErrorHdbc(connection);
        return 2;
    }
    if (!succeeded(SQLPrepareW(statement.get(), sqlText(text), SQL_NTS))) {
        Tabra_DisplayErrorHstmt(statement.get(), text);
        return 2;
    }
    auto count = resultColumnAttribute(statement.get(), 0, SQL_COLUMN_COUNT);
    if (!count) {
        Tabra_DisplayErrorHstmt(statement.get(), text);
        return 2;
    }
    for (SQLLEN column = 1; column <= *count; ++column) {
        auto column16 = static_cast<SQLUSMALLINT>(column);
        auto automatic = resultColumnAttribute(statement.get(), column16, SQL_COLUMN_AUTO_INCREMENT);
        if (!automatic) {
            Tabra_DisplayErrorHstmt(statement.get(), text);
            return 2;
        }
        if (*automatic == 0) continue;
        // The capacity goes to the driver unchanged, as a byte count.
        if (!succeeded(resultColumnName(statement.get(), column16, output,
                                        static_cast<SQLSMALLINT>(std::min(capacity, int32_t{32767})), nullptr))) {
            Tabra_DisplayErrorHstmt(statement.get(), text);
            return 2;
        }
        return 1;
    }
    return 2;
}
