// Reading values: with FailValue a value that contains its text cannot be read
// (SQLSTATE 22018, as a driver answers a value it cannot convert), and row arrays are
// refused, so that each value is read by SQLGetData and the failure hits one column of
// one row.
#include "driver_entry.h"
#include "handle_registry.h"

#include <sqlext.h>

#include <cstring>
#include <string>

namespace tabra::testdriver {
namespace {

// The value as text: 8-bit text as it is, wide text with its ASCII units.
std::string valueText(SQLSMALLINT type, const void *value, SQLLEN indicator) {
    if (value == nullptr || indicator == SQL_NULL_DATA) return {};
    if (type == SQL_C_CHAR) return static_cast<const char *>(value);
    std::string text;
    if (type == SQL_C_WCHAR)
        for (const auto *unit = static_cast<const SQLWCHAR *>(value); *unit != 0; ++unit)
            text.push_back(*unit < 0x80 ? static_cast<char>(*unit) : '?');
    return text;
}

} // namespace
} // namespace tabra::testdriver

using namespace tabra::testdriver;

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLGetData(SQLHSTMT StatementHandle, SQLUSMALLINT ColumnNumber,
                                                 SQLSMALLINT TargetType, SQLPOINTER TargetValue, SQLLEN BufferLength,
                                                 SQLLEN *StrLen_or_Ind) {
    enter("SQLGetData", StatementHandle);
    SQLRETURN rc = TABRA_REAL(SQLGetData)(StatementHandle, ColumnNumber, TargetType, TargetValue, BufferLength,
                                          StrLen_or_Ind);
    const std::string failValue = statementSettings(StatementHandle).failValue;
    if (!SQL_SUCCEEDED(rc) || failValue.empty() || BufferLength <= 0) return rc;
    if (valueText(TargetType, TargetValue, StrLen_or_Ind ? *StrLen_or_Ind : 0).find(failValue) == std::string::npos)
        return rc;
    injectDiagnostic(StatementHandle, SQL_ERROR,
                     {"22018", 1, "[TabraTestDriver]Value of column " + std::to_string(ColumnNumber) +
                                      " cannot be read for the test"});
    return SQL_ERROR;
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLSetStmtAttr(SQLHSTMT StatementHandle, SQLINTEGER Attribute, SQLPOINTER Value,
                                                     SQLINTEGER StringLength) {
    enter("SQLSetStmtAttr", StatementHandle);
    if (Attribute == SQL_ATTR_ROW_ARRAY_SIZE && reinterpret_cast<SQLULEN>(Value) > 1 &&
        !statementSettings(StatementHandle).failValue.empty()) {
        injectDiagnostic(StatementHandle, SQL_ERROR, {"HYC00", 1, "[TabraTestDriver]No row arrays for this test"});
        return SQL_ERROR;
    }
    return TABRA_REAL(SQLSetStmtAttr)(StatementHandle, Attribute, Value, StringLength);
}
