// A wizard's rows in transactions on the caller's connection (the import's and the add
// records wizard's): autocommit is switched off while the rows go in, they are committed in groups and at the end, and the
// connection gets its autocommit state back on every path (the destructor restores it).
// A driver that has no transactions (SQL_TXN_CAPABLE is SQL_TC_NONE) or does not let
// autocommit be switched off leaves every statement committed as it runs.
#pragma once

#include <sql.h>
#include <sqlext.h>

namespace tabra::wizards {

class RowTransaction {
public:
    // Switches autocommit off when the connection can run transactions.
    explicit RowTransaction(SQLHDBC connection);
    ~RowTransaction();
    RowTransaction(const RowTransaction &) = delete;
    RowTransaction &operator=(const RowTransaction &) = delete;

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

} // namespace tabra::wizards
