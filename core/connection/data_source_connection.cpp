// Opening and closing a connection from a data source record. The caller owns the
// environment and connection pair; a failed open always leaves both null.
#include "core/diagnostics/odbc_error_display.h"
#include "core/odbc/odbc_text.h"
#include "core/resource_ids.h"
#include "tabra_connection.h"

using tabra::diagnostics::showOdbcError;
using tabra::odbc::sqlText;

namespace {

// An empty field reaches the driver as an absent value (a null pointer).
const char16_t *fieldOrNull(const char16_t *field) { return field[0] == u'\0' ? nullptr : field; }

// Frees what is open of the pair and nulls both handles.
void closePair(SQLHENV *environment, SQLHDBC *connection) {
    if (*connection != SQL_NULL_HDBC) {
        SQLDisconnect(*connection);
        SQLFreeConnect(*connection);
        *connection = SQL_NULL_HDBC;
    }
    if (*environment != SQL_NULL_HENV) {
        SQLFreeEnv(*environment);
        *environment = SQL_NULL_HENV;
    }
}

} // namespace

extern "C" int32_t Tabra_ConnectDataSource(const DataSourceInfo *record, SQLHENV *environment,
                                           SQLHDBC *connection) {
    if (record == nullptr || environment == nullptr || connection == nullptr) return -1;
    if (*environment != SQL_NULL_HENV && *connection != SQL_NULL_HDBC) return 0;
    if (record->DataSourceName[0] == u'\0') {
        ShowMessage(tabra::core::ids::kMessage.noDataSource, nullptr, nullptr, nullptr);
        return -1;
    }
    closePair(environment, connection);

    // The record's fields are fixed-width; copy them so that a field filled to its
    // width still reaches the driver terminated.
    DataSourceInfo fields = *record;
    fields.DataSourceName[99] = u'\0';
    fields.UserId[49] = u'\0';
    fields.Password[49] = u'\0';
    const char16_t *user = fieldOrNull(fields.UserId);
    const char16_t *password = fieldOrNull(fields.Password);

    if (SQLAllocEnv(environment) != SQL_SUCCESS) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        closePair(environment, connection);
        return -1;
    }
    if (SQLAllocConnect(*environment, connection) != SQL_SUCCESS) {
        showOdbcError(SQL_HANDLE_ENV, *environment, nullptr);
        closePair(environment, connection);
        return -1;
    }
    SQLRETURN rc = SQLConnectW(*connection, sqlText(fields.DataSourceName), SQL_NTS,
                               user ? sqlText(user) : nullptr, SQL_NTS,
                               password ? sqlText(password) : nullptr, SQL_NTS);
    int16_t lowBits = static_cast<int16_t>(rc & 0xFFFF);
    if (lowBits == SQL_SUCCESS || lowBits == SQL_SUCCESS_WITH_INFO) return 0;
    showOdbcError(SQL_HANDLE_DBC, *connection, nullptr);
    closePair(environment, connection);
    return -1;
}

extern "C" void Tabra_DisconnectDataSource(SQLHENV *environment, SQLHDBC *connection) {
    if (environment == nullptr || connection == nullptr) return;
    closePair(environment, connection);
}
