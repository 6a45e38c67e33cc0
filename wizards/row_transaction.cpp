// Transactions of a wizard's rows on the caller's connection.
#include "wizards/row_transaction.h"

#include "core/odbc/odbc_text.h"
#include "core/diagnostics/odbc_error_display.h"

#include <sqlext.h>

namespace tabra::wizards {
namespace {

bool setAutocommitAttribute(SQLHDBC connection, SQLULEN value) {
    return odbc::succeeded(SQLSetConnectAttr(connection, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(value),
                                             SQL_IS_UINTEGER));
}

} // namespace

RowTransaction::RowTransaction(SQLHDBC connection) : connection_(connection) {
    SQLUSMALLINT capable = SQL_TC_NONE;
    if (connection == SQL_NULL_HDBC ||
        !odbc::succeeded(SQLGetInfoW(connection, SQL_TXN_CAPABLE, &capable, sizeof capable, nullptr)) ||
        capable == SQL_TC_NONE ||
        !odbc::succeeded(SQLGetConnectAttr(connection, SQL_ATTR_AUTOCOMMIT, &previous_, SQL_IS_UINTEGER, nullptr)))
        return;
    if (previous_ == SQL_AUTOCOMMIT_OFF) {
        // The caller runs a transaction of his own: the wizard's rows become part of it.
        return;
    }
    changed_ = active_ = setAutocommitAttribute(connection, SQL_AUTOCOMMIT_OFF);
}

RowTransaction::~RowTransaction() {
    if (changed_) setAutocommitAttribute(connection_, previous_);
}

bool RowTransaction::commit() {
    if (!active_) return true;
    if (odbc::succeeded(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT))) return true;
    diagnostics::showOdbcError(SQL_HANDLE_DBC, connection_, nullptr);
    return false;
}

bool RowTransaction::rollback() {
    return !active_ || odbc::succeeded(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK));
}

bool RowTransaction::setAutocommit(bool on) {
    if (!changed_) return true;
    if (!setAutocommitAttribute(connection_, on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF)) return false;
    active_ = !on;
    return true;
}

} // namespace tabra::wizards
