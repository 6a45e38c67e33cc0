// The entry points the test driver passes straight to the SQLite3 driver: each one
// traces the call, clears what the driver injected into the handle before, and
// forwards its arguments unchanged. The set of entry points is the real driver's.
#include "driver_entry.h"

#define TABRA_FORWARD(name, handle, parameters, arguments)                                          \
    TABRA_DRIVER_EXPORT SQLRETURN SQL_API name parameters {                                        \
        ::tabra::testdriver::enter(#name, handle);                                                 \
        return TABRA_REAL(name) arguments;                                                         \
    }

TABRA_FORWARD(SQLAllocConnect, (EnvironmentHandle), (SQLHENV EnvironmentHandle, SQLHDBC *ConnectionHandle),
              (EnvironmentHandle, ConnectionHandle))
TABRA_FORWARD(SQLAllocEnv, (SQL_NULL_HANDLE), (SQLHENV *EnvironmentHandle), (EnvironmentHandle))
TABRA_FORWARD(SQLBindCol, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT ColumnNumber,
              SQLSMALLINT TargetType, SQLPOINTER TargetValue, SQLLEN BufferLength, SQLLEN *StrLen_or_Ind),
              (StatementHandle, ColumnNumber, TargetType, TargetValue, BufferLength, StrLen_or_Ind))
TABRA_FORWARD(SQLBindParam, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT ParameterNumber,
              SQLSMALLINT ValueType, SQLSMALLINT ParameterType, SQLULEN LengthPrecision,
              SQLSMALLINT ParameterScale, SQLPOINTER ParameterValue, SQLLEN *StrLen_or_Ind),
              (StatementHandle, ParameterNumber, ValueType, ParameterType, LengthPrecision, ParameterScale,
              ParameterValue, StrLen_or_Ind))
TABRA_FORWARD(SQLBindParameter, (hstmt), (SQLHSTMT hstmt, SQLUSMALLINT ipar, SQLSMALLINT fParamType,
              SQLSMALLINT fCType, SQLSMALLINT fSqlType, SQLULEN cbColDef, SQLSMALLINT ibScale,
              SQLPOINTER rgbValue, SQLLEN cbValueMax, SQLLEN *pcbValue), (hstmt, ipar, fParamType, fCType,
              fSqlType, cbColDef, ibScale, rgbValue, cbValueMax, pcbValue))
TABRA_FORWARD(SQLBrowseConnect, (hdbc), (SQLHDBC hdbc, SQLCHAR *szConnStrIn, SQLSMALLINT cbConnStrIn,
              SQLCHAR *szConnStrOut, SQLSMALLINT cbConnStrOutMax, SQLSMALLINT *pcbConnStrOut), (hdbc,
              szConnStrIn, cbConnStrIn, szConnStrOut, cbConnStrOutMax, pcbConnStrOut))
TABRA_FORWARD(SQLBulkOperations, (StatementHandle), (SQLHSTMT StatementHandle, SQLSMALLINT Operation),
              (StatementHandle, Operation))
TABRA_FORWARD(SQLCancel, (StatementHandle), (SQLHSTMT StatementHandle), (StatementHandle))
TABRA_FORWARD(SQLCloseCursor, (StatementHandle), (SQLHSTMT StatementHandle), (StatementHandle))
TABRA_FORWARD(SQLColAttribute, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT ColumnNumber,
              SQLUSMALLINT FieldIdentifier, SQLPOINTER CharacterAttribute, SQLSMALLINT BufferLength,
              SQLSMALLINT *StringLength, SQLLEN *NumericAttribute), (StatementHandle, ColumnNumber,
              FieldIdentifier, CharacterAttribute, BufferLength, StringLength, NumericAttribute))
TABRA_FORWARD(SQLColAttributes, (hstmt), (SQLHSTMT hstmt, SQLUSMALLINT icol, SQLUSMALLINT fDescType,
              SQLPOINTER rgbDesc, SQLSMALLINT cbDescMax, SQLSMALLINT *pcbDesc, SQLLEN *pfDesc), (hstmt,
              icol, fDescType, rgbDesc, cbDescMax, pcbDesc, pfDesc))
TABRA_FORWARD(SQLColumnPrivileges, (hstmt), (SQLHSTMT hstmt, SQLCHAR *szCatalogName,
              SQLSMALLINT cbCatalogName, SQLCHAR *szSchemaName, SQLSMALLINT cbSchemaName,
              SQLCHAR *szTableName, SQLSMALLINT cbTableName, SQLCHAR *szColumnName,
              SQLSMALLINT cbColumnName), (hstmt, szCatalogName, cbCatalogName, szSchemaName, cbSchemaName,
              szTableName, cbTableName, szColumnName, cbColumnName))
TABRA_FORWARD(SQLColumns, (StatementHandle), (SQLHSTMT StatementHandle, SQLCHAR *CatalogName,
              SQLSMALLINT NameLength1, SQLCHAR *SchemaName, SQLSMALLINT NameLength2, SQLCHAR *TableName,
              SQLSMALLINT NameLength3, SQLCHAR *ColumnName, SQLSMALLINT NameLength4), (StatementHandle,
              CatalogName, NameLength1, SchemaName, NameLength2, TableName, NameLength3, ColumnName,
              NameLength4))
TABRA_FORWARD(SQLCopyDesc, (TargetDescHandle), (SQLHDESC SourceDescHandle, SQLHDESC TargetDescHandle),
              (SourceDescHandle, TargetDescHandle))
TABRA_FORWARD(SQLDataSources, (EnvironmentHandle), (SQLHENV EnvironmentHandle, SQLUSMALLINT Direction,
              SQLCHAR *ServerName, SQLSMALLINT BufferLength1, SQLSMALLINT *NameLength1,
              SQLCHAR *Description, SQLSMALLINT BufferLength2, SQLSMALLINT *NameLength2),
              (EnvironmentHandle, Direction, ServerName, BufferLength1, NameLength1, Description,
              BufferLength2, NameLength2))
TABRA_FORWARD(SQLDescribeCol, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT ColumnNumber,
              SQLCHAR *ColumnName, SQLSMALLINT BufferLength, SQLSMALLINT *NameLength, SQLSMALLINT *DataType,
              SQLULEN *ColumnSize, SQLSMALLINT *DecimalDigits, SQLSMALLINT *Nullable), (StatementHandle,
              ColumnNumber, ColumnName, BufferLength, NameLength, DataType, ColumnSize, DecimalDigits,
              Nullable))
TABRA_FORWARD(SQLDescribeParam, (hstmt), (SQLHSTMT hstmt, SQLUSMALLINT ipar, SQLSMALLINT *pfSqlType,
              SQLULEN *pcbParamDef, SQLSMALLINT *pibScale, SQLSMALLINT *pfNullable), (hstmt, ipar,
              pfSqlType, pcbParamDef, pibScale, pfNullable))
TABRA_FORWARD(SQLDrivers, (henv), (SQLHENV henv, SQLUSMALLINT fDirection, SQLCHAR *szDriverDesc,
              SQLSMALLINT cbDriverDescMax, SQLSMALLINT *pcbDriverDesc, SQLCHAR *szDriverAttributes,
              SQLSMALLINT cbDrvrAttrMax, SQLSMALLINT *pcbDrvrAttr), (henv, fDirection, szDriverDesc,
              cbDriverDescMax, pcbDriverDesc, szDriverAttributes, cbDrvrAttrMax, pcbDrvrAttr))
TABRA_FORWARD(SQLEndTran, (Handle), (SQLSMALLINT HandleType, SQLHANDLE Handle, SQLSMALLINT CompletionType),
              (HandleType, Handle, CompletionType))
TABRA_FORWARD(SQLExtendedFetch, (hstmt), (SQLHSTMT hstmt, SQLUSMALLINT fFetchType, SQLLEN irow,
              SQLULEN *pcrow, SQLUSMALLINT *rgfRowStatus), (hstmt, fFetchType, irow, pcrow, rgfRowStatus))
TABRA_FORWARD(SQLFetch, (StatementHandle), (SQLHSTMT StatementHandle), (StatementHandle))
TABRA_FORWARD(SQLFetchScroll, (StatementHandle), (SQLHSTMT StatementHandle, SQLSMALLINT FetchOrientation,
              SQLLEN FetchOffset), (StatementHandle, FetchOrientation, FetchOffset))
TABRA_FORWARD(SQLForeignKeys, (hstmt), (SQLHSTMT hstmt, SQLCHAR *szPkCatalogName,
              SQLSMALLINT cbPkCatalogName, SQLCHAR *szPkSchemaName, SQLSMALLINT cbPkSchemaName,
              SQLCHAR *szPkTableName, SQLSMALLINT cbPkTableName, SQLCHAR *szFkCatalogName,
              SQLSMALLINT cbFkCatalogName, SQLCHAR *szFkSchemaName, SQLSMALLINT cbFkSchemaName,
              SQLCHAR *szFkTableName, SQLSMALLINT cbFkTableName), (hstmt, szPkCatalogName, cbPkCatalogName,
              szPkSchemaName, cbPkSchemaName, szPkTableName, cbPkTableName, szFkCatalogName,
              cbFkCatalogName, szFkSchemaName, cbFkSchemaName, szFkTableName, cbFkTableName))
TABRA_FORWARD(SQLFreeEnv, (EnvironmentHandle), (SQLHENV EnvironmentHandle), (EnvironmentHandle))
TABRA_FORWARD(SQLGetConnectAttr, (ConnectionHandle), (SQLHDBC ConnectionHandle, SQLINTEGER Attribute,
              SQLPOINTER Value, SQLINTEGER BufferLength, SQLINTEGER *StringLength), (ConnectionHandle,
              Attribute, Value, BufferLength, StringLength))
TABRA_FORWARD(SQLGetConnectOption, (ConnectionHandle), (SQLHDBC ConnectionHandle, SQLUSMALLINT Option,
              SQLPOINTER Value), (ConnectionHandle, Option, Value))
TABRA_FORWARD(SQLGetCursorName, (StatementHandle), (SQLHSTMT StatementHandle, SQLCHAR *CursorName,
              SQLSMALLINT BufferLength, SQLSMALLINT *NameLength), (StatementHandle, CursorName,
              BufferLength, NameLength))
TABRA_FORWARD(SQLGetDescField, (DescriptorHandle), (SQLHDESC DescriptorHandle, SQLSMALLINT RecNumber,
              SQLSMALLINT FieldIdentifier, SQLPOINTER Value, SQLINTEGER BufferLength,
              SQLINTEGER *StringLength), (DescriptorHandle, RecNumber, FieldIdentifier, Value, BufferLength,
              StringLength))
TABRA_FORWARD(SQLGetDescRec, (DescriptorHandle), (SQLHDESC DescriptorHandle, SQLSMALLINT RecNumber,
              SQLCHAR *Name, SQLSMALLINT BufferLength, SQLSMALLINT *StringLength, SQLSMALLINT *Type,
              SQLSMALLINT *SubType, SQLLEN *Length, SQLSMALLINT *Precision, SQLSMALLINT *Scale,
              SQLSMALLINT *Nullable), (DescriptorHandle, RecNumber, Name, BufferLength, StringLength, Type,
              SubType, Length, Precision, Scale, Nullable))
TABRA_FORWARD(SQLGetEnvAttr, (EnvironmentHandle), (SQLHENV EnvironmentHandle, SQLINTEGER Attribute,
              SQLPOINTER Value, SQLINTEGER BufferLength, SQLINTEGER *StringLength), (EnvironmentHandle,
              Attribute, Value, BufferLength, StringLength))
TABRA_FORWARD(SQLGetStmtAttr, (StatementHandle), (SQLHSTMT StatementHandle, SQLINTEGER Attribute,
              SQLPOINTER Value, SQLINTEGER BufferLength, SQLINTEGER *StringLength), (StatementHandle,
              Attribute, Value, BufferLength, StringLength))
TABRA_FORWARD(SQLGetStmtOption, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT Option,
              SQLPOINTER Value), (StatementHandle, Option, Value))
TABRA_FORWARD(SQLGetTypeInfo, (StatementHandle), (SQLHSTMT StatementHandle, SQLSMALLINT DataType),
              (StatementHandle, DataType))
TABRA_FORWARD(SQLMoreResults, (hstmt), (SQLHSTMT hstmt), (hstmt))
TABRA_FORWARD(SQLNativeSql, (hdbc), (SQLHDBC hdbc, SQLCHAR *szSqlStrIn, SQLINTEGER cbSqlStrIn,
              SQLCHAR *szSqlStr, SQLINTEGER cbSqlStrMax, SQLINTEGER *pcbSqlStr), (hdbc, szSqlStrIn,
              cbSqlStrIn, szSqlStr, cbSqlStrMax, pcbSqlStr))
TABRA_FORWARD(SQLNumParams, (hstmt), (SQLHSTMT hstmt, SQLSMALLINT *pcpar), (hstmt, pcpar))
TABRA_FORWARD(SQLNumResultCols, (StatementHandle), (SQLHSTMT StatementHandle, SQLSMALLINT *ColumnCount),
              (StatementHandle, ColumnCount))
TABRA_FORWARD(SQLParamData, (StatementHandle), (SQLHSTMT StatementHandle, SQLPOINTER *Value),
              (StatementHandle, Value))
TABRA_FORWARD(SQLParamOptions, (hstmt), (SQLHSTMT hstmt, SQLULEN crow, SQLULEN *pirow), (hstmt, crow,
              pirow))
TABRA_FORWARD(SQLProcedureColumns, (hstmt), (SQLHSTMT hstmt, SQLCHAR *szCatalogName,
              SQLSMALLINT cbCatalogName, SQLCHAR *szSchemaName, SQLSMALLINT cbSchemaName,
              SQLCHAR *szProcName, SQLSMALLINT cbProcName, SQLCHAR *szColumnName, SQLSMALLINT cbColumnName),
              (hstmt, szCatalogName, cbCatalogName, szSchemaName, cbSchemaName, szProcName, cbProcName,
              szColumnName, cbColumnName))
TABRA_FORWARD(SQLProcedures, (hstmt), (SQLHSTMT hstmt, SQLCHAR *szCatalogName, SQLSMALLINT cbCatalogName,
              SQLCHAR *szSchemaName, SQLSMALLINT cbSchemaName, SQLCHAR *szProcName, SQLSMALLINT cbProcName),
              (hstmt, szCatalogName, cbCatalogName, szSchemaName, cbSchemaName, szProcName, cbProcName))
TABRA_FORWARD(SQLPutData, (StatementHandle), (SQLHSTMT StatementHandle, SQLPOINTER Data,
              SQLLEN StrLen_or_Ind), (StatementHandle, Data, StrLen_or_Ind))
TABRA_FORWARD(SQLRowCount, (StatementHandle), (SQLHSTMT StatementHandle, SQLLEN *RowCount),
              (StatementHandle, RowCount))
TABRA_FORWARD(SQLSetConnectAttr, (ConnectionHandle), (SQLHDBC ConnectionHandle, SQLINTEGER Attribute,
              SQLPOINTER Value, SQLINTEGER StringLength), (ConnectionHandle, Attribute, Value,
              StringLength))
TABRA_FORWARD(SQLSetConnectOption, (ConnectionHandle), (SQLHDBC ConnectionHandle, SQLUSMALLINT Option,
              SQLULEN Value), (ConnectionHandle, Option, Value))
TABRA_FORWARD(SQLSetCursorName, (StatementHandle), (SQLHSTMT StatementHandle, SQLCHAR *CursorName,
              SQLSMALLINT NameLength), (StatementHandle, CursorName, NameLength))
TABRA_FORWARD(SQLSetDescField, (DescriptorHandle), (SQLHDESC DescriptorHandle, SQLSMALLINT RecNumber,
              SQLSMALLINT FieldIdentifier, SQLPOINTER Value, SQLINTEGER BufferLength), (DescriptorHandle,
              RecNumber, FieldIdentifier, Value, BufferLength))
TABRA_FORWARD(SQLSetDescRec, (DescriptorHandle), (SQLHDESC DescriptorHandle, SQLSMALLINT RecNumber,
              SQLSMALLINT Type, SQLSMALLINT SubType, SQLLEN Length, SQLSMALLINT Precision,
              SQLSMALLINT Scale, SQLPOINTER Data, SQLLEN *StringLength, SQLLEN *Indicator),
              (DescriptorHandle, RecNumber, Type, SubType, Length, Precision, Scale, Data, StringLength,
              Indicator))
TABRA_FORWARD(SQLSetEnvAttr, (EnvironmentHandle), (SQLHENV EnvironmentHandle, SQLINTEGER Attribute,
              SQLPOINTER Value, SQLINTEGER StringLength), (EnvironmentHandle, Attribute, Value,
              StringLength))
TABRA_FORWARD(SQLSetParam, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT ParameterNumber,
              SQLSMALLINT ValueType, SQLSMALLINT ParameterType, SQLULEN LengthPrecision,
              SQLSMALLINT ParameterScale, SQLPOINTER ParameterValue, SQLLEN *StrLen_or_Ind),
              (StatementHandle, ParameterNumber, ValueType, ParameterType, LengthPrecision, ParameterScale,
              ParameterValue, StrLen_or_Ind))
TABRA_FORWARD(SQLSetPos, (hstmt), (SQLHSTMT hstmt, SQLSETPOSIROW irow, SQLUSMALLINT fOption,
              SQLUSMALLINT fLock), (hstmt, irow, fOption, fLock))
TABRA_FORWARD(SQLSetScrollOptions, (hstmt), (SQLHSTMT hstmt, SQLUSMALLINT fConcurrency, SQLLEN crowKeyset,
              SQLUSMALLINT crowRowset), (hstmt, fConcurrency, crowKeyset, crowRowset))
TABRA_FORWARD(SQLSetStmtOption, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT Option,
              SQLULEN Value), (StatementHandle, Option, Value))
TABRA_FORWARD(SQLSpecialColumns, (StatementHandle), (SQLHSTMT StatementHandle, SQLUSMALLINT IdentifierType,
              SQLCHAR *CatalogName, SQLSMALLINT NameLength1, SQLCHAR *SchemaName, SQLSMALLINT NameLength2,
              SQLCHAR *TableName, SQLSMALLINT NameLength3, SQLUSMALLINT Scope, SQLUSMALLINT Nullable),
              (StatementHandle, IdentifierType, CatalogName, NameLength1, SchemaName, NameLength2,
              TableName, NameLength3, Scope, Nullable))
TABRA_FORWARD(SQLStatistics, (StatementHandle), (SQLHSTMT StatementHandle, SQLCHAR *CatalogName,
              SQLSMALLINT NameLength1, SQLCHAR *SchemaName, SQLSMALLINT NameLength2, SQLCHAR *TableName,
              SQLSMALLINT NameLength3, SQLUSMALLINT Unique, SQLUSMALLINT Reserved), (StatementHandle,
              CatalogName, NameLength1, SchemaName, NameLength2, TableName, NameLength3, Unique, Reserved))
TABRA_FORWARD(SQLTablePrivileges, (hstmt), (SQLHSTMT hstmt, SQLCHAR *szCatalogName,
              SQLSMALLINT cbCatalogName, SQLCHAR *szSchemaName, SQLSMALLINT cbSchemaName,
              SQLCHAR *szTableName, SQLSMALLINT cbTableName), (hstmt, szCatalogName, cbCatalogName,
              szSchemaName, cbSchemaName, szTableName, cbTableName))
TABRA_FORWARD(SQLTables, (StatementHandle), (SQLHSTMT StatementHandle, SQLCHAR *CatalogName,
              SQLSMALLINT NameLength1, SQLCHAR *SchemaName, SQLSMALLINT NameLength2, SQLCHAR *TableName,
              SQLSMALLINT NameLength3, SQLCHAR *TableType, SQLSMALLINT NameLength4), (StatementHandle,
              CatalogName, NameLength1, SchemaName, NameLength2, TableName, NameLength3, TableType,
              NameLength4))
TABRA_FORWARD(SQLTransact, (ConnectionHandle ? ConnectionHandle : EnvironmentHandle),
              (SQLHENV EnvironmentHandle, SQLHDBC ConnectionHandle, SQLUSMALLINT CompletionType),
              (EnvironmentHandle, ConnectionHandle, CompletionType))

// The driver's setup entry point, used by configuration tools only.
TABRA_DRIVER_EXPORT int ODBCINSTGetProperties(void *lastProperty) {
    using Function = int (*)(void *);
    return ::tabra::testdriver::realFunction<Function>("ODBCINSTGetProperties")(lastProperty);
}
