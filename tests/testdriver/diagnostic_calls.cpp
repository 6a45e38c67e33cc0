// The diagnostic calls, in their ODBC 2 (SQLError) and ODBC 3 (SQLGetDiagRec,
// SQLGetDiagField) forms: records the driver injected into a handle are answered
// here; everything else comes from the real driver. These calls never clear records.
#include "driver_entry.h"
#include "text_output.h"

#include <sqlext.h>

namespace tabra::testdriver {
namespace {

SQLRETURN writeRecord(const InjectedRecord &record, SQLCHAR *state, SQLINTEGER *nativeError, SQLCHAR *message,
                      SQLSMALLINT bufferLength, SQLSMALLINT *textLength) {
    if (state) writeText(record.state, state, SQL_SQLSTATE_SIZE + 1, static_cast<SQLSMALLINT *>(nullptr));
    if (nativeError) *nativeError = record.nativeError;
    return writeText(record.message, message, bufferLength, textLength) ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

template <typename Value>
SQLRETURN writeValue(SQLPOINTER target, Value value) {
    if (target) *static_cast<Value *>(target) = value;
    return SQL_SUCCESS;
}

SQLRETURN textField(const std::string &text, SQLPOINTER info, SQLSMALLINT bufferLength, SQLSMALLINT *length) {
    return writeText(text, info, bufferLength, length) ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

} // namespace
} // namespace tabra::testdriver

using namespace tabra::testdriver;

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLError(SQLHENV EnvironmentHandle, SQLHDBC ConnectionHandle,
                                               SQLHSTMT StatementHandle, SQLCHAR *Sqlstate, SQLINTEGER *NativeError,
                                               SQLCHAR *MessageText, SQLSMALLINT BufferLength,
                                               SQLSMALLINT *TextLength) {
    SQLHANDLE handle = StatementHandle ? StatementHandle : ConnectionHandle ? ConnectionHandle : EnvironmentHandle;
    trace("SQLError", handle);
    if (!hasInjectedDiagnostics(handle))
        return TABRA_REAL(SQLError)(EnvironmentHandle, ConnectionHandle, StatementHandle, Sqlstate, NativeError,
                                    MessageText, BufferLength, TextLength);
    auto record = takeInjectedRecord(handle);
    if (!record) return SQL_NO_DATA;
    return writeRecord(*record, Sqlstate, NativeError, MessageText, BufferLength, TextLength);
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLGetDiagRec(SQLSMALLINT HandleType, SQLHANDLE Handle, SQLSMALLINT RecNumber,
                                                    SQLCHAR *Sqlstate, SQLINTEGER *NativeError, SQLCHAR *MessageText,
                                                    SQLSMALLINT BufferLength, SQLSMALLINT *TextLength) {
    trace("SQLGetDiagRec", Handle);
    if (!hasInjectedDiagnostics(Handle))
        return TABRA_REAL(SQLGetDiagRec)(HandleType, Handle, RecNumber, Sqlstate, NativeError, MessageText,
                                         BufferLength, TextLength);
    if (RecNumber < 1 || BufferLength < 0) return SQL_ERROR;
    auto record = injectedRecord(Handle, RecNumber);
    if (!record) return SQL_NO_DATA;
    return writeRecord(*record, Sqlstate, NativeError, MessageText, BufferLength, TextLength);
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLGetDiagField(SQLSMALLINT HandleType, SQLHANDLE Handle, SQLSMALLINT RecNumber,
                                                      SQLSMALLINT DiagIdentifier, SQLPOINTER DiagInfo,
                                                      SQLSMALLINT BufferLength, SQLSMALLINT *StringLength) {
    trace("SQLGetDiagField", Handle);
    if (!hasInjectedDiagnostics(Handle))
        return TABRA_REAL(SQLGetDiagField)(HandleType, Handle, RecNumber, DiagIdentifier, DiagInfo, BufferLength,
                                           StringLength);
    // Header fields: the count and return code are the injected ones; the rest
    // (row counts, dynamic function) still describe the real statement.
    switch (DiagIdentifier) {
    case SQL_DIAG_NUMBER: return writeValue<SQLINTEGER>(DiagInfo, injectedRecordCount(Handle));
    case SQL_DIAG_RETURNCODE: return writeValue<SQLRETURN>(DiagInfo, injectedReturnCode(Handle));
    case SQL_DIAG_CURSOR_ROW_COUNT:
    case SQL_DIAG_DYNAMIC_FUNCTION:
    case SQL_DIAG_DYNAMIC_FUNCTION_CODE:
    case SQL_DIAG_ROW_COUNT:
        return TABRA_REAL(SQLGetDiagField)(HandleType, Handle, 0, DiagIdentifier, DiagInfo, BufferLength,
                                           StringLength);
    default: break;
    }
    auto record = injectedRecord(Handle, RecNumber);
    if (!record) return RecNumber < 1 ? SQL_ERROR : SQL_NO_DATA;
    switch (DiagIdentifier) {
    case SQL_DIAG_SQLSTATE: return textField(record->state, DiagInfo, BufferLength, StringLength);
    case SQL_DIAG_NATIVE: return writeValue<SQLINTEGER>(DiagInfo, record->nativeError);
    case SQL_DIAG_MESSAGE_TEXT: return textField(record->message, DiagInfo, BufferLength, StringLength);
    case SQL_DIAG_CLASS_ORIGIN:
    case SQL_DIAG_SUBCLASS_ORIGIN: return textField("ODBC 3.0", DiagInfo, BufferLength, StringLength);
    case SQL_DIAG_CONNECTION_NAME:
    case SQL_DIAG_SERVER_NAME: return textField("", DiagInfo, BufferLength, StringLength);
    case SQL_DIAG_COLUMN_NUMBER: return writeValue<SQLINTEGER>(DiagInfo, SQL_COLUMN_NUMBER_UNKNOWN);
    case SQL_DIAG_ROW_NUMBER: return writeValue<SQLLEN>(DiagInfo, SQL_ROW_NUMBER_UNKNOWN);
    default: return SQL_ERROR;
    }
}
