// Raw ODBC for tests: owning handles and helpers to set up data and read results
// through the real driver manager and drivers, independent of the library under test.
// Environments are made with SQLAllocEnv (ODBC 2 behaviour), as the library makes
// them. Failures throw OdbcError with the diagnostic records; GoogleTest reports an
// exception escaping a test as that test's failure.
#pragma once

#include "support/test_configuration.h"

#include <sql.h>
#include <sqlext.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::test {

struct DiagnosticRecord {
    std::u16string state;
    SQLINTEGER nativeError = 0;
    std::u16string message;
};

// Every record of a handle through SQLGetDiagRecW (ODBC 3 form).
std::vector<DiagnosticRecord> diagnosticRecords(SQLSMALLINT handleType, SQLHANDLE handle);
// Every record through SQLErrorW (ODBC 2 form), which consumes them.
std::vector<DiagnosticRecord> errorRecords(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement);

class OdbcError : public std::runtime_error {
public:
    OdbcError(const std::string &what, SQLRETURN result, std::vector<DiagnosticRecord> records);
    SQLRETURN result() const { return result_; }
    const std::vector<DiagnosticRecord> &records() const { return records_; }
    // The first record's SQLSTATE, or empty.
    std::u16string state() const { return records_.empty() ? std::u16string() : records_.front().state; }

private:
    SQLRETURN result_;
    std::vector<DiagnosticRecord> records_;
};

inline bool succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

// How the environment is made: SQLAllocEnv (ODBC 2 behaviour, as the library does),
// or SQLAllocHandle with SQL_ATTR_ODBC_VERSION set to 3 (for comparison).
enum class OdbcBehaviour { Odbc2, Odbc3 };

// An environment and a connection to one data source, closed and freed on scope exit.
class OdbcConnection {
public:
    // Connects with SQLConnectW; an empty user or password is passed as absent.
    OdbcConnection(std::u16string_view dataSource, std::u16string_view user = u"",
                   std::u16string_view password = u"", OdbcBehaviour behaviour = OdbcBehaviour::Odbc2);
    explicit OdbcConnection(const DataSource &dataSource)
        : OdbcConnection(dataSource.name, dataSource.user, dataSource.password) {}
    OdbcConnection(const OdbcConnection &) = delete;
    OdbcConnection &operator=(const OdbcConnection &) = delete;
    OdbcConnection(OdbcConnection &&other) noexcept;
    OdbcConnection &operator=(OdbcConnection &&) = delete;
    ~OdbcConnection();

    SQLHENV environment() const { return environment_; }
    SQLHDBC handle() const { return connection_; }
    // What SQLConnectW returned (SQL_SUCCESS or SQL_SUCCESS_WITH_INFO).
    SQLRETURN connectResult() const { return connectResult_; }
    // The diagnostic records SQLConnectW left on the connection.
    const std::vector<DiagnosticRecord> &connectRecords() const { return connectRecords_; }

private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
    SQLRETURN connectResult_ = SQL_ERROR;
    std::vector<DiagnosticRecord> connectRecords_;
};

// A statement handle of a connection, dropped on scope exit.
class OdbcStatement {
public:
    explicit OdbcStatement(const OdbcConnection &connection);
    OdbcStatement(const OdbcStatement &) = delete;
    OdbcStatement &operator=(const OdbcStatement &) = delete;
    ~OdbcStatement();

    SQLHSTMT handle() const { return statement_; }
    // Runs sql with SQLExecDirectW and returns the result (throws on failure).
    SQLRETURN execute(std::u16string_view sql);

private:
    SQLHSTMT statement_ = SQL_NULL_HSTMT;
};

using Row = std::vector<std::optional<std::u16string>>; // a null column is nullopt

// Runs a statement; returns its row count (SQLRowCount).
SQLLEN executeSql(const OdbcConnection &connection, std::u16string_view sql);
// Runs each statement in turn.
void executeAll(const OdbcConnection &connection, const std::vector<std::u16string> &statements);
// Runs a query and fetches every row, each column as text (SQL_C_WCHAR).
std::vector<Row> queryRows(const OdbcConnection &connection, std::u16string_view sql);
// The first column of the first row of a query (nullopt for NULL; throws on no row).
std::optional<std::u16string> queryValue(const OdbcConnection &connection, std::u16string_view sql);
// Fetches the remaining rows of an executed statement.
std::vector<Row> fetchRows(SQLHSTMT statement);

// SQLGetInfoW for a text item (SQL_DBMS_NAME, SQL_IDENTIFIER_QUOTE_CHAR, ...).
std::u16string infoText(const OdbcConnection &connection, SQLUSMALLINT infoType);
// SQLGetInfoW for a 32-bit item (SQL_SCHEMA_USAGE, ...).
SQLUINTEGER infoNumber(const OdbcConnection &connection, SQLUSMALLINT infoType);

} // namespace tabra::test
