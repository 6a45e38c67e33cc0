// A statement handle that lives for one call: dropped on every path out of the scope
// that owns it. Only the statement runner allocates one (core/odbc/statement_runner.h).
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
