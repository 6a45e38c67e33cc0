// The import's rows in transactions on the caller's connection: autocommit is switched
// off while the rows go in, they are committed in groups and at the end, and the
// connection gets its autocommit state back on every path (the destructor restores it).
// A driver that has no transactions (SQL_TXN_CAPABLE is SQL_TC_NONE) or does not let
// autocommit be switched off leaves every statement committed as it runs.
#pragma once

#include <sql.h>
#include <sqlext.h>

namespace tabra::wizards::importing {

class ImportTransaction {
public:
    // Switches autocommit off when the connection can run transactions.
    explicit ImportTransaction(SQLHDBC connection);
    ~ImportTransaction();
    ImportTransaction(const ImportTransaction &) = delete;
    ImportTransaction &operator=(const ImportTransaction &) = delete;

    // Whether the rows go in transactions (autocommit is off now).
    bool active() const { return active_; }
    // Commits what went in since the last commit; false after a failure (shown for the
    // connection; the database has then rolled the transaction back).
    bool commit();
    // Undoes what went in since the last commit.
    bool rollback();
    // Lets every statement commit itself from now on (on), or groups them again (off).
    bool setAutocommit(bool on);

private:
    SQLHDBC connection_;
    SQLULEN previous_ = SQL_AUTOCOMMIT_ON;
    bool changed_ = false;
    bool active_ = false;
};

} // namespace tabra::wizards::importing
