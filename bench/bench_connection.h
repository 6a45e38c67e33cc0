// A plain ODBC connection for the benchmarks' set-up and checks (the code measured gets
// only its handle), and the environment the bench scripts set.
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace tabra::bench {

inline std::u16string wide(const std::string &text) { return std::u16string(text.begin(), text.end()); }

inline std::string env(const char *name) {
    const char *value = std::getenv(name);
    return value != nullptr ? value : "";
}

class BenchConnection {
public:
    // Connects by a connection string; odbcVersion SQL_OV_ODBC2 gives the catalog's
    // date codes the library's own connections see.
    explicit BenchConnection(std::u16string text, SQLULEN odbcVersion = SQL_OV_ODBC3) {
        std::setlocale(LC_ALL, "C.UTF-8");
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(odbcVersion), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        if (!SQL_SUCCEEDED(SQLDriverConnectW(connection_, nullptr, reinterpret_cast<SQLWCHAR *>(text.data()), SQL_NTS,
                                             nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT))) {
            free();
            throw std::runtime_error("cannot connect to the bench database");
        }
    }
    ~BenchConnection() {
        SQLDisconnect(connection_);
        free();
    }
    BenchConnection(const BenchConnection &) = delete;
    BenchConnection &operator=(const BenchConnection &) = delete;

    SQLHDBC handle() const { return connection_; }

    // True when the statement ran (or changed no row).
    bool run(std::u16string sql) const {
        SQLHSTMT statement;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        SQLRETURN rc = SQLExecDirectW(statement, reinterpret_cast<SQLWCHAR *>(sql.data()), SQL_NTS);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        return SQL_SUCCEEDED(rc) || rc == SQL_NO_DATA;
    }

    // The rows of a table, -1 when it cannot be counted.
    int64_t count(const std::u16string &table) const {
        SQLHSTMT statement;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        std::u16string sql = u"SELECT COUNT(*) FROM " + table;
        SQLBIGINT rows = -1;
        if (SQL_SUCCEEDED(SQLExecDirectW(statement, reinterpret_cast<SQLWCHAR *>(sql.data()), SQL_NTS)) &&
            SQL_SUCCEEDED(SQLFetch(statement)))
            SQLGetData(statement, 1, SQL_C_SBIGINT, &rows, 0, nullptr);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        return rows;
    }

private:
    void free() {
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }

    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
};

} // namespace tabra::bench
