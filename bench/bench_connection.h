// A connection for the benchmarks, through the driver manager as the library uses it,
// with the few statements their set-up and checks need, and the environment the bench
// scripts set. (Header only.)
#pragma once

#include <sql.h>
#include <sqlext.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace bench {

inline std::u16string ascii(const std::string &text) { return std::u16string(text.begin(), text.end()); }
inline SQLWCHAR *sqlText(std::u16string &text) { return reinterpret_cast<SQLWCHAR *>(text.data()); }
inline std::string environment(const char *name) {
    const char *value = std::getenv(name);
    return value != nullptr ? value : "";
}

class Connection {
public:
    // A data source by name with its login (byName), or a connection string. ODBC 2
    // behaviour, as the library's own connections have it (the catalog then reports
    // date columns with the codes the library reads as dates), unless odbcVersion says
    // otherwise.
    Connection(std::u16string text, bool byName, std::u16string user = u"", std::u16string password = u"",
               SQLULEN odbcVersion = SQL_OV_ODBC2) {
        std::setlocale(LC_CTYPE, "C.UTF-8");
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(odbcVersion), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        SQLRETURN rc;
        if (byName)
            rc = SQLConnectW(connection_, sqlText(text), SQL_NTS, user.empty() ? nullptr : sqlText(user), SQL_NTS,
                             password.empty() ? nullptr : sqlText(password), SQL_NTS);
        else
            rc = SQLDriverConnectW(connection_, nullptr, sqlText(text), SQL_NTS, nullptr, 0, nullptr,
                                   SQL_DRIVER_NOPROMPT);
        if (!SQL_SUCCEEDED(rc)) {
            free();
            throw std::runtime_error("cannot connect to the bench database");
        }
    }
    ~Connection() {
        SQLDisconnect(connection_);
        free();
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    SQLHDBC handle() const { return connection_; }

    // True when the statement ran (or changed no row).
    bool run(std::u16string sql) const {
        SQLHSTMT statement;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        SQLRETURN rc = SQLExecDirectW(statement, sqlText(sql), SQL_NTS);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        return SQL_SUCCEEDED(rc) || rc == SQL_NO_DATA;
    }

    // The rows of a table, -1 when it cannot be counted.
    int64_t count(const std::u16string &table) const {
        SQLHSTMT statement;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        std::u16string sql = u"SELECT COUNT(*) FROM " + table;
        SQLBIGINT rows = -1;
        if (SQL_SUCCEEDED(SQLExecDirectW(statement, sqlText(sql), SQL_NTS)) && SQL_SUCCEEDED(SQLFetch(statement)))
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

} // namespace bench
