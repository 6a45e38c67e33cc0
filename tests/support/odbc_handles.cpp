#include "support/odbc_handles.h"

#include "support/test_text.h"

#include <cstring>
#include <utility>

namespace tabra::test {
namespace {

SQLWCHAR *sqlText(std::u16string &text) { return reinterpret_cast<SQLWCHAR *>(text.data()); }

std::u16string fromSql(const SQLWCHAR *text) {
    return std::u16string(reinterpret_cast<const char16_t *>(text));
}

std::string describe(const std::string &what, SQLRETURN rc, const std::vector<DiagnosticRecord> &records) {
    std::string text = what + " returned " + std::to_string(rc);
    for (const auto &record : records)
        text += "\n  [" + toUtf8(record.state) + "] (" + std::to_string(record.nativeError) + ") " +
                toUtf8(record.message);
    return text;
}

[[noreturn]] void fail(const std::string &what, SQLRETURN rc, SQLSMALLINT handleType, SQLHANDLE handle) {
    std::vector<DiagnosticRecord> records =
        handle ? diagnosticRecords(handleType, handle) : std::vector<DiagnosticRecord>{};
    std::string description = describe(what, rc, records);
    throw OdbcError(description, rc, std::move(records));
}

} // namespace

namespace {

// Collects records while `next` (given the record's number and its buffers) succeeds.
template <class Next> std::vector<DiagnosticRecord> collectRecords(Next next) {
    std::vector<DiagnosticRecord> records;
    for (SQLSMALLINT number = 1; number <= 100; ++number) {
        SQLWCHAR state[SQL_SQLSTATE_SIZE + 1] = {};
        SQLINTEGER nativeError = 0;
        SQLWCHAR message[SQL_MAX_MESSAGE_LENGTH + 1] = {};
        SQLSMALLINT length = 0;
        if (!succeeded(next(number, state, &nativeError, message, &length))) break;
        records.push_back({fromSql(state), nativeError, fromSql(message)});
    }
    return records;
}

} // namespace

std::vector<DiagnosticRecord> diagnosticRecords(SQLSMALLINT handleType, SQLHANDLE handle) {
    return collectRecords([&](SQLSMALLINT number, SQLWCHAR *state, SQLINTEGER *nativeError, SQLWCHAR *message,
                              SQLSMALLINT *length) {
        return SQLGetDiagRecW(handleType, handle, number, state, nativeError, message, SQL_MAX_MESSAGE_LENGTH + 1,
                              length);
    });
}

std::vector<DiagnosticRecord> errorRecords(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement) {
    return collectRecords([&](SQLSMALLINT, SQLWCHAR *state, SQLINTEGER *nativeError, SQLWCHAR *message,
                              SQLSMALLINT *length) {
        return SQLErrorW(environment, connection, statement, state, nativeError, message, SQL_MAX_MESSAGE_LENGTH + 1,
                         length);
    });
}

OdbcError::OdbcError(const std::string &what, SQLRETURN result, std::vector<DiagnosticRecord> records)
    : std::runtime_error(what), result_(result), records_(std::move(records)) {}

OdbcConnection::OdbcConnection(std::u16string_view dataSource, std::u16string_view user,
                               std::u16string_view password, OdbcBehaviour behaviour) {
    if (behaviour == OdbcBehaviour::Odbc2) {
        if (!succeeded(SQLAllocEnv(&environment_))) throw OdbcError("SQLAllocEnv", SQL_ERROR, {});
    } else {
        if (!succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_)))
            throw OdbcError("SQLAllocHandle(SQL_HANDLE_ENV)", SQL_ERROR, {});
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    }
    SQLRETURN rc = SQLAllocConnect(environment_, &connection_);
    if (!succeeded(rc)) {
        SQLFreeEnv(environment_);
        fail("SQLAllocConnect", rc, SQL_HANDLE_ENV, environment_);
    }
    std::u16string name(dataSource), userText(user), passwordText(password);
    connectResult_ = SQLConnectW(connection_, sqlText(name), SQL_NTS, userText.empty() ? nullptr : sqlText(userText),
                                 SQL_NTS, passwordText.empty() ? nullptr : sqlText(passwordText), SQL_NTS);
    connectRecords_ = diagnosticRecords(SQL_HANDLE_DBC, connection_);
    if (!succeeded(connectResult_)) {
        std::string what = describe("SQLConnectW(" + toUtf8(name) + ")", connectResult_, connectRecords_);
        SQLFreeConnect(connection_);
        SQLFreeEnv(environment_);
        throw OdbcError(what, connectResult_, connectRecords_);
    }
}

OdbcConnection::OdbcConnection(OdbcConnection &&other) noexcept
    : environment_(std::exchange(other.environment_, nullptr)),
      connection_(std::exchange(other.connection_, nullptr)), connectResult_(other.connectResult_),
      connectRecords_(std::move(other.connectRecords_)) {}

OdbcConnection::~OdbcConnection() {
    if (connection_) {
        SQLDisconnect(connection_);
        SQLFreeConnect(connection_);
    }
    if (environment_) SQLFreeEnv(environment_);
}

OdbcStatement::OdbcStatement(const OdbcConnection &connection) {
    SQLRETURN rc = SQLAllocStmt(connection.handle(), &statement_);
    if (!succeeded(rc)) fail("SQLAllocStmt", rc, SQL_HANDLE_DBC, connection.handle());
}

OdbcStatement::~OdbcStatement() {
    if (statement_) SQLFreeStmt(statement_, SQL_DROP);
}

SQLRETURN OdbcStatement::execute(std::u16string_view sql) {
    std::u16string text(sql);
    SQLRETURN rc = SQLExecDirectW(statement_, sqlText(text), SQL_NTS);
    if (!succeeded(rc) && rc != SQL_NO_DATA) fail("SQLExecDirectW(" + toUtf8(text) + ")", rc, SQL_HANDLE_STMT, statement_);
    return rc;
}

SQLLEN executeSql(const OdbcConnection &connection, std::u16string_view sql) {
    OdbcStatement statement(connection);
    statement.execute(sql);
    SQLLEN rows = -1;
    SQLRowCount(statement.handle(), &rows);
    return rows;
}

void executeAll(const OdbcConnection &connection, const std::vector<std::u16string> &statements) {
    for (const auto &sql : statements) executeSql(connection, sql);
}

std::vector<Row> fetchRows(SQLHSTMT statement) {
    SQLSMALLINT columns = 0;
    SQLRETURN rc = SQLNumResultCols(statement, &columns);
    if (!succeeded(rc)) fail("SQLNumResultCols", rc, SQL_HANDLE_STMT, statement);
    std::vector<Row> rows;
    while (true) {
        rc = SQLFetch(statement);
        if (rc == SQL_NO_DATA) break;
        if (!succeeded(rc)) fail("SQLFetch", rc, SQL_HANDLE_STMT, statement);
        Row row;
        for (SQLUSMALLINT column = 1; column <= static_cast<SQLUSMALLINT>(columns); ++column) {
            // Long values arrive in pieces. The length of each piece is taken from its
            // terminator: one driver reports it short for some characters.
            std::u16string value;
            bool isNull = false;
            while (true) {
                char16_t buffer[2048];
                SQLLEN indicator = 0;
                rc = SQLGetData(statement, column, SQL_C_WCHAR, buffer, sizeof buffer, &indicator);
                if (rc == SQL_NO_DATA) break;
                if (!succeeded(rc)) fail("SQLGetData", rc, SQL_HANDLE_STMT, statement);
                if (indicator == SQL_NULL_DATA) {
                    isNull = true;
                    break;
                }
                std::u16string_view piece(buffer, sizeof buffer / sizeof buffer[0]);
                value.append(piece.substr(0, piece.find(u'\0')));
                if (rc == SQL_SUCCESS) break;
            }
            row.push_back(isNull ? std::nullopt : std::optional<std::u16string>(std::move(value)));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<Row> queryRows(const OdbcConnection &connection, std::u16string_view sql) {
    OdbcStatement statement(connection);
    statement.execute(sql);
    return fetchRows(statement.handle());
}

std::optional<std::u16string> queryValue(const OdbcConnection &connection, std::u16string_view sql) {
    std::vector<Row> rows = queryRows(connection, sql);
    if (rows.empty() || rows.front().empty())
        throw OdbcError("no row from " + toUtf8(std::u16string(sql)), SQL_NO_DATA, {});
    return rows.front().front();
}

std::u16string infoText(const OdbcConnection &connection, SQLUSMALLINT infoType) {
    SQLWCHAR value[512] = {};
    SQLSMALLINT length = 0;
    SQLRETURN rc = SQLGetInfoW(connection.handle(), infoType, value, sizeof value, &length);
    if (!succeeded(rc)) fail("SQLGetInfoW(" + std::to_string(infoType) + ")", rc, SQL_HANDLE_DBC, connection.handle());
    return fromSql(value);
}

SQLUINTEGER infoNumber(const OdbcConnection &connection, SQLUSMALLINT infoType) {
    SQLUINTEGER value = 0;
    SQLRETURN rc = SQLGetInfoW(connection.handle(), infoType, &value, sizeof value, nullptr);
    if (!succeeded(rc)) fail("SQLGetInfoW(" + std::to_string(infoType) + ")", rc, SQL_HANDLE_DBC, connection.handle());
    return value;
}

} // namespace tabra::test
