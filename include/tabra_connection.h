/* Tabra: the module and its connections.
 *
 * Module queries. When the library is loaded it records its own module handle,
 * loads its resource library for the user-interface language (see ostrel_lts.h;
 * the language comes from ZUL_LANGUAGE, else from LC_ALL / LC_MESSAGES / LANG) and
 * sets its module-wide values; when it is unloaded it frees the resource library.
 * If no resource library is found, the user is told once (a message box naming the
 * path in the "en" folder, also written to stderr) and the library works on without
 * texts and dialogs. */
#ifndef TABRA_CONNECTION_H
#define TABRA_CONNECTION_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* The library's own module handle (stands for libtabra.so itself). */
TABRA_API HMODULE Tabra_GetInstance(void);

/* Copies the library's translation module name "TABRADLL" into destination with
 * OstrelCopyString(destination, name, size) and returns that call's result. */
TABRA_API int32_t Tabra_GetLtsModuleName(char16_t *destination, int32_t size);

/* The library's version as text ("0.1.0"):
 * Ostrel_GetResourceFileVersion(Tabra_GetInstance(), 1, destination, size, 0). */
TABRA_API int32_t Tabra_GetVersion(char16_t *destination, int32_t size);

/* ---- Data source connection ---- */

/* The data source record: three zero-terminated fields and a reserved tail that is
 * copied along, never read. */
typedef struct DataSourceInfo {
    char16_t DataSourceName[100];
    char16_t UserId[50];
    char16_t Password[50];
    uint8_t Reserved[20];
} DataSourceInfo;

/* The kind of database behind a connection, decided from the DBMS name on every call. */
typedef enum DatabaseType {
    DbOther = 0,
    DbProgress = 1,
    DbMySql = 2,
    DbAccess = 3,
    DbSqlServer = 4,
    DbExcel = 5,
    DbOracle = 6
} DatabaseType;

/* 0 on success or when the pair is already open; -1 on failure (shown to the user). */
TABRA_API int32_t Tabra_ConnectDataSource(const DataSourceInfo *record, SQLHENV *environment, SQLHDBC *connection);
TABRA_API void Tabra_DisconnectDataSource(SQLHENV *environment, SQLHDBC *connection);
/* The info queries hand the length to the driver as a byte count: at most half of a
 * buffer of that many characters is filled. */
TABRA_API void Tabra_GetDataSourceName(SQLHDBC connection, char16_t *buffer, int32_t length);
TABRA_API void Tabra_GetDatabaseName(SQLHDBC connection, char16_t *buffer, int32_t length);
TABRA_API SQLRETURN Tabra_GetDriverVersion(SQLHDBC connection, char16_t *buffer, int32_t length);
TABRA_API int32_t Tabra_GetDatabaseType(SQLHDBC connection);
TABRA_API char16_t Tabra_GetDelimiter(SQLHDBC connection);
TABRA_API uint32_t Tabra_GetSchemaUsage(SQLHDBC connection);

/* ---- ODBC diagnostics and error display ---- */

/* Each shows the handle's first diagnostic record in the ODBC error dialog, modal to
 * the active window, and answers 1 (OK, or nothing to show) or 2 (Cancel). */
TABRA_API int32_t Tabra_DisplayErrorHenv(SQLHENV environment);
TABRA_API int32_t Tabra_DisplayErrorHdbc(SQLHDBC connection);
TABRA_API int32_t Tabra_DisplayErrorHstmt(SQLHSTMT statement, const char16_t *statementText);
TABRA_API int32_t OdbcEh_HandleErrorHenv(int32_t callerValue, SQLHENV environment);
TABRA_API int32_t OdbcEh_HandleErrorHdbc(int32_t callerValue, SQLHDBC connection);
TABRA_API int32_t OdbcEh_HandleErrorHstmt(int32_t callerValue, SQLHSTMT statement, const char16_t *statementText);
/* An informational return code (1) is shown only when the diagnostic switch asks for it. */
TABRA_API int32_t Tabra_DisplayErrorOrInfoHstmt(SQLHSTMT statement, SQLRETURN returnCode, const char16_t *statementText);
/* The dialog procedure of the ODBC error dialog. */
TABRA_API INT_PTR DisplayOdbcErrorCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

/* The SQLSTATE of the handle's first diagnostic record (empty without one); returns
 * the bounded copy's result. */
TABRA_API int32_t Tabra_GetErrorCode(int16_t handleType, SQLHANDLE handle, char16_t *buffer, int32_t size);
/* 1 when the last SQLSTATE is one of the comma-separated states of list ("*": any;
 * "NOINFO" with return code 1: informational results are expected). */
TABRA_API int32_t Tabra_IsLastErrorInList(int16_t handleType, SQLHANDLE handle, const char16_t *list, SQLRETURN returnCode);
/* A message of the resource library with up to three inserted texts; returns the
 * button that closed it. */
TABRA_API int32_t ShowMessage(int32_t stringId, const char16_t *argument1, const char16_t *argument2,
                              const char16_t *argument3);

/* ---- Data source persistence and dialogs ---- */

/* A database object chosen by the user: its name and object-type code, and reserved
 * bytes that the wizards and the object chooser carry along unread: they copy the whole
 * 144-byte record in and back. */
typedef struct DbObjectInfo {
    char16_t DbObjectName[50];
    int32_t DbObjectType;
    uint8_t Reserved[40];
} DbObjectInfo;
#define TABRA_DB_OBJECT_INFO_SIZE 144

/* Registry values "DataSourceName", "UserId", "Password" below root\keyPath\subKey;
 * the password is stored as a plain string. Nothing happens for a null record. */
TABRA_API void Tabra_WriteDataSourceToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                               const char16_t *subKey, const DataSourceInfo *record);
/* Missing values take the default record's fields (empty without one). */
TABRA_API void Tabra_ReadDataSourceFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                                const char16_t *subKey, const DataSourceInfo *defaults,
                                                DataSourceInfo *record);
/* The same, looking under HKEY_CURRENT_USER first, then HKEY_LOCAL_MACHINE. */
TABRA_API void Tabra_ReadDataSourceFromHKCUorHKLM(const char16_t *keyPath, const char16_t *subKey,
                                                  const DataSourceInfo *defaults, DataSourceInfo *record);
/* Registry values "DbObjectName" and "DbObjectType". */
TABRA_API void Tabra_WriteDbObjectToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                             const char16_t *subKey, const DbObjectInfo *object);
TABRA_API void Tabra_ReadDbObjectFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                              const char16_t *subKey, const DbObjectInfo *defaults,
                                              DbObjectInfo *object);

/* Fills a list with every data source name the driver manager knows (user and
 * system). 1 done, 2 when no ODBC environment could be had (message shown). */
TABRA_API int32_t Tabra_FillDataSourcesBox(HWND list);
/* Fills a list with the schemas that own tables (empty when the database knows no
 * schemas). 1 done, 2 on failure (shown) or null arguments. */
TABRA_API int32_t Tabra_FillSchemataBox(SQLHDBC connection, HWND list);

/* The data source dialog: 1 when OK was accepted after a working login (the record is
 * updated), 2 otherwise. The last user per data source is remembered, never the password. */
TABRA_API int32_t Tabra_DataSourceDialog(DataSourceInfo *record);
TABRA_API INT_PTR DataSourceDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
/* The schema dialog: 1 and the chosen schema (100 characters) on OK, 2 otherwise. */
TABRA_API int32_t Tabra_SelectDbaseSchema(HWND owner, SQLHDBC connection, char16_t *schema);
TABRA_API INT_PTR SelectSchemaDialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
/* The data source and schema dialog: 1 on OK with the record and schema handed back,
 * 2 otherwise. Its connection is closed when it ends. */
TABRA_API int32_t Tabra_DataSourceAndSchemaDialog(HWND owner, DataSourceInfo *record, char16_t *schema,
                                                  int32_t schemaSize, void *callerData);
TABRA_API INT_PTR DsAndSchemaDialogCallback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

TABRA_END_DECLS

#endif
