// What the driver says about itself: SQLGetInfo answers the data source's DBMSName,
// DBMSVersion, QuoteChar, Keywords, SchemaUsage and IdentifierCase instead of the real driver's, and
// SQLGetFunctions hides SQLPrimaryKeys when the data source says PrimaryKeys=0 (in
// the single-function form and in both bitmap forms).
#include "driver_entry.h"
#include "handle_registry.h"
#include "text_output.h"

#include <sqlext.h>

#include <optional>

namespace tabra::testdriver {
namespace {

SQLRETURN answerText(SQLHDBC connection, const std::string &text, SQLPOINTER value, SQLSMALLINT bufferLength,
                     SQLSMALLINT *length) {
    if (writeText(text, value, bufferLength, length)) return SQL_SUCCESS;
    injectDiagnostic(connection, SQL_SUCCESS_WITH_INFO, {"01004", 0, "[TabraTestDriver]String data, right truncated"});
    return SQL_SUCCESS_WITH_INFO;
}

std::optional<std::string> textOverride(const DataSourceSettings &settings, SQLUSMALLINT infoType) {
    switch (infoType) {
    case SQL_DBMS_NAME: return settings.dbmsName;
    case SQL_DBMS_VER: return settings.dbmsVersion;
    case SQL_IDENTIFIER_QUOTE_CHAR: return settings.quoteChar;
    case SQL_KEYWORDS: return settings.keywords;
    default: return std::nullopt;
    }
}

void setFunctionBit(SQLUSMALLINT *bitmap, SQLUSMALLINT function, bool present) {
    SQLUSMALLINT mask = static_cast<SQLUSMALLINT>(1u << (function & 0x000F));
    if (present)
        bitmap[function >> 4] |= mask;
    else
        bitmap[function >> 4] &= static_cast<SQLUSMALLINT>(~mask);
}

} // namespace
} // namespace tabra::testdriver

using namespace tabra::testdriver;

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLGetInfo(SQLHDBC ConnectionHandle, SQLUSMALLINT InfoType,
                                                 SQLPOINTER InfoValue, SQLSMALLINT BufferLength,
                                                 SQLSMALLINT *StringLength) {
    enter("SQLGetInfo", ConnectionHandle);
    DataSourceSettings settings = connectionSettings(ConnectionHandle);
    if (auto text = textOverride(settings, InfoType))
        return answerText(ConnectionHandle, *text, InfoValue, BufferLength, StringLength);
    if (InfoType == SQL_SCHEMA_USAGE && settings.schemaUsage) {
        if (InfoValue) *static_cast<SQLUINTEGER *>(InfoValue) = *settings.schemaUsage;
        if (StringLength) *StringLength = sizeof(SQLUINTEGER);
        return SQL_SUCCESS;
    }
    if (InfoType == SQL_IDENTIFIER_CASE && settings.identifierCase) {
        if (InfoValue) *static_cast<SQLUSMALLINT *>(InfoValue) = *settings.identifierCase;
        if (StringLength) *StringLength = sizeof(SQLUSMALLINT);
        return SQL_SUCCESS;
    }
    return TABRA_REAL(SQLGetInfo)(ConnectionHandle, InfoType, InfoValue, BufferLength, StringLength);
}

TABRA_DRIVER_EXPORT SQLRETURN SQL_API SQLGetFunctions(SQLHDBC ConnectionHandle, SQLUSMALLINT FunctionId,
                                                      SQLUSMALLINT *Supported) {
    enter("SQLGetFunctions", ConnectionHandle);
    SQLRETURN rc = TABRA_REAL(SQLGetFunctions)(ConnectionHandle, FunctionId, Supported);
    if ((rc != SQL_SUCCESS && rc != SQL_SUCCESS_WITH_INFO) || !Supported) return rc;
    if (connectionSettings(ConnectionHandle).primaryKeys) return rc;
    if (FunctionId == SQL_API_SQLPRIMARYKEYS)
        *Supported = SQL_FALSE;
    else if (FunctionId == SQL_API_ALL_FUNCTIONS)
        Supported[SQL_API_SQLPRIMARYKEYS] = SQL_FALSE;
    else if (FunctionId == SQL_API_ODBC3_ALL_FUNCTIONS)
        setFunctionBit(Supported, SQL_API_SQLPRIMARYKEYS, false);
    return rc;
}
