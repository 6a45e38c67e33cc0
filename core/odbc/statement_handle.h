// A statement handle that lives for one call: allocated from a connection and
// dropped on every path out of the scope that owns it.
#pragma once

#include <sql.h>
#include <sqlext.h>

namespace tabra::odbc {

class StatementHandle {
public:
    StatementHandle() = default;
    explicit StatementHandle(SQLHSTMT handle) : handle_(handle) {}
    StatementHandle(const StatementHandle &) = delete;
    StatementHandle &operator=(const StatementHandle &) = delete;
    StatementHandle(StatementHandle &&other) noexcept : handle_(other.release()) {}
    StatementHandle &operator=(StatementHandle &&other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    ~StatementHandle() { reset(); }

    // Allocates from the connection with the ODBC 2 call the library uses throughout;
    // returns the driver manager's result (the handle stays empty on failure).
    SQLRETURN allocate(SQLHDBC connection) {
        reset();
        SQLHSTMT fresh = SQL_NULL_HSTMT;
        SQLRETURN rc = SQLAllocStmt(connection, &fresh);
        if (rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO) handle_ = fresh;
        return rc;
    }

    SQLHSTMT get() const { return handle_; }
    explicit operator bool() const { return handle_ != SQL_NULL_HSTMT; }

    SQLHSTMT release() {
        SQLHSTMT handle = handle_;
        handle_ = SQL_NULL_HSTMT;
        return handle;
    }

    void reset(SQLHSTMT handle = SQL_NULL_HSTMT) {
        if (handle_ != SQL_NULL_HSTMT) SQLFreeStmt(handle_, SQL_DROP);
        handle_ = handle;
    }

private:
    SQLHSTMT handle_ = SQL_NULL_HSTMT;
};

} // namespace tabra::odbc
