/* Tabra: catalog and table operations.
 *
 * Table lists and existence tests, column lists and column facts, primary keys, the
 * library's data-type codes, value text, and the whole-table operations (drop, rename
 * by copy, free names, counts and aggregates).
 *
 * Two families do the same jobs: the Tabra_* functions take a bare connection and show
 * every ODBC failure at once through the error display (Tabra_DisplayErrorHdbc /
 * Tabra_DisplayErrorHstmt); the OdbcEh_* functions take the caller's error context
 * first and report through OdbcEh_HandleErrorHdbc / OdbcEh_HandleErrorHstmt. Every
 * statement handle lives for one call and is dropped on every path; every statement
 * the library builds passes the statement hook (Ostrel_DumpSqlStatement) first.
 * Lists are one wide text of names joined by a separator; capacities count characters
 * including the terminator. Null or blank arguments give the failure value without a
 * message. */
#ifndef TABRA_CATALOG_H
#define TABRA_CATALOG_H

#include "tabra_base.h"

/* Table-type flags: which catalog table types a table list asks for. */
#define TABRA_TABLE_TYPE_TABLE 0x1
#define TABRA_TABLE_TYPE_VIEW 0x2
#define TABRA_TABLE_TYPE_ALIAS 0x4
#define TABRA_TABLE_TYPE_SYSTEM_TABLE 0x8 /* also lists the library's bookkeeping tables */
#define TABRA_TABLE_TYPE_ALL 0x10         /* every type: no type list at all */
#define TABRA_TABLE_TYPE_SYNONYM 0x100

/* Qualify flags of the extended table readers. */
#define TABRA_QUALIFY_SCHEMA 0x1 /* entries read schema.table where the row has a schema */
#define TABRA_QUALIFY_SORTED 0x2 /* Tabra_FillTablesBoxExtended: the box is filled sorted */

/* Object-type codes (Tabra_ObjectTypeToName). */
#define TABRA_OBJECT_TABLE 1
#define TABRA_OBJECT_VIEW 2
#define TABRA_OBJECT_FORM 4
#define TABRA_OBJECT_REPORT 8

/* Flags of Tabra_GetFields and Tabra_FillFieldsBox. */
#define TABRA_FIELDS_QUALIFY 0x1        /* every name reads table.column */
#define TABRA_FIELDS_WITH_TYPE 0x2      /* each name is followed by its ODBC type code */
#define TABRA_FIELDS_QUOTE_ALSO 0x4     /* implies TABRA_FIELDS_QUOTE */
#define TABRA_FIELDS_QUOTE 0x8          /* names prepared for SQL (Tabra_PrepareNameForSql92) */
#define TABRA_FIELDS_QUALIFY_SHARED 0x10 /* only names that occur twice become table.column */
#define TABRA_FIELDS_NOT_NULL_ONLY 0x20 /* nullable columns are left out */
/* Flags of Tabra_AddColumnsToBox: TABRA_FIELDS_QUALIFY, TABRA_FIELDS_NOT_NULL_ONLY and: */
#define TABRA_FIELDS_WITH_SCHEMA 0x40 /* schema "." before the table */
/* Flag of the primary-key readers: TABRA_FIELDS_QUOTE. */

/* Flags of Tabra_DeleteTable(Extended). */
#define TABRA_DELETE_NO_CONFIRM 0x1   /* do not ask with message 1702 first */
#define TABRA_DELETE_MISSING_OK 0x2   /* S0002 / 42S02 (no such table) counts as dropped */
/* Flag of Tabra_RenameTable. */
#define TABRA_RENAME_WAIT_NOTICE 0x1  /* show the wait notice while the copy runs */

/* The count Tabra_GetRowSetCount gives for a UNION query, which it does not count. */
#define TABRA_UNION_ROW_COUNT 9999999

/* The library's own data-type codes. */
typedef enum TabraDataType {
    TdtText = 1,
    TdtInteger = 2,
    TdtNumber = 3,
    TdtDateTime = 4,
    TdtBinary = 7,
    TdtMemo = 9,
    TdtVarText = 10
} TabraDataType;

/* What Tabra_GetColumnProperties reports of one column; booleans are 0 or 1, and a
 * field whose query failed stays 0. */
typedef struct ColumnProperties {
    int32_t sqlType;
    uint32_t autoIncrement;
    uint32_t caseSensitive;
    int32_t length;
    uint32_t nullable;  /* "unknown" counts as nullable */
    uint32_t updatable; /* "unknown" counts as updatable */
} ColumnProperties;

TABRA_BEGIN_DECLS

/* ---- Table catalog ---- */

/* The tables of the given types, joined by separator (null: ","). Tables whose name
 * starts with "USys" (case-sensitive) or is "OstrelSysTable" (any case) are left out
 * unless TABRA_TABLE_TYPE_SYSTEM_TABLE is asked for. With TABRA_QUALIFY_SCHEMA and a
 * driver that knows schemas, entries with a schema read schema.table. A schema that is
 * not blank limits the list to it. A list that does not fit ends at the last entry
 * that did (no error). 0 on success; -1 for a null connection or output, a capacity
 * below 1, or an ODBC failure (shown). */
TABRA_API int32_t Tabra_GetTables(SQLHDBC connection, int32_t typeFlags, char16_t *output, int32_t capacity,
                                  const char16_t *separator);
TABRA_API int32_t Tabra_GetTablesExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                          uint8_t qualify, char16_t *output, int32_t capacity,
                                          const char16_t *separator);
/* The lean variant: bare names, no bookkeeping filter. 0 success, -1 bad arguments or
 * a failing catalog call (reported to the context), 2 no statement handle. */
TABRA_API int32_t OdbcEh_GetTablesExtended(int32_t context, SQLHDBC connection, int32_t typeFlags,
                                           const char16_t *schema, int32_t ignored, char16_t *output,
                                           int32_t capacity, const char16_t *separator);

/* 1 when a table of the given types has this name (any case), 0 when not, -1 when the
 * list could not be read. Only the first 10000 characters of the list are searched. */
TABRA_API int32_t Tabra_DoesTableExist(SQLHDBC connection, int32_t typeFlags, const char16_t *name);
/* The same against schema-qualified entries: name is given as schema.table. */
TABRA_API int32_t Tabra_DoesTableExistExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                               const char16_t *name);
/* 1 found; 0 not found, null name or a failing catalog call (reported); 2 no statement
 * handle. Searches the whole catalog. */
TABRA_API int32_t OdbcEh_DoesTableExist(int32_t context, SQLHDBC connection, int32_t typeFlags,
                                        const char16_t *schema, const char16_t *name, int32_t ignored);

/* Replace a list or combo box's entries by the table list (at most 30000 characters).
 * 0 filled, -1 when the list could not be read. */
TABRA_API int32_t Tabra_FillTablesBox(SQLHDBC connection, int32_t typeFlags, HWND box);
TABRA_API int32_t Tabra_FillTablesBoxExtended(SQLHDBC connection, int32_t typeFlags, const char16_t *schema,
                                              uint8_t qualify, HWND box);
/* Forms and reports live in no catalog the library reads: these do nothing. */
TABRA_API void Tabra_FillFormsBox(void);
TABRA_API void Tabra_FillReportsBox(void);
/* "TABLE", "VIEW", "FORM", "REPORT" for codes 1, 2, 4, 8, else empty; returns the
 * bounded copy's result (OstrelCopyString). */
TABRA_API int32_t Tabra_ObjectTypeToName(int32_t objectType, char16_t *output, int32_t capacity);

/* ---- Column catalog ---- */

/* The columns of the tab-separated tables (bare or schema.table), in catalog order,
 * joined by separator (null: tab), shaped by the TABRA_FIELDS_* flags. An entry that
 * does not fit is skipped and a later shorter one may still be written. 1 written
 * (also empty); 2 null output, capacity below 1, or a failure (shown). */
TABRA_API int32_t Tabra_GetFields(SQLHDBC connection, const char16_t *tables, int32_t flags,
                                  const char16_t *separator, char16_t *output, int32_t capacity);
/* The number of columns the catalog lists for the table; 2 on any failure. */
TABRA_API int32_t Tabra_GetFieldCount(SQLHDBC connection, const char16_t *table);
/* Empties the box and fills it with Tabra_GetFields (tab-separated, 30000 characters). */
TABRA_API void Tabra_FillFieldsBox(SQLHDBC connection, const char16_t *tables, HWND box, int32_t flags);
/* Adds (does not replace) the table's columns to the box; flags TABRA_FIELDS_QUALIFY,
 * TABRA_FIELDS_WITH_SCHEMA, TABRA_FIELDS_NOT_NULL_ONLY. 1 (also when there is nothing
 * to do), 2 on failure (shown). */
TABRA_API int32_t Tabra_AddColumnsToBox(SQLHDBC connection, const char16_t *schema, const char16_t *table,
                                        HWND box, int32_t flags);
/* 1 found (any case); 0 not found, null argument or a failing catalog call (shown);
 * 2 no statement handle. */
TABRA_API int32_t Tabra_DoesFieldExist(SQLHDBC connection, const char16_t *table, const char16_t *column);
TABRA_API int32_t OdbcEh_DoesColumnExist(int32_t context, SQLHDBC connection, const char16_t *table,
                                         const char16_t *schema, const char16_t *column);
/* Column names joined by separator (null: tab). A failing catalog call whose SQLSTATE
 * is in the comma-separated tolerated list gives 1 and an empty list; otherwise it is
 * reported and gives 2. */
TABRA_API int32_t OdbcEh_GetColumnNames(int32_t context, SQLHDBC connection, const char16_t *table,
                                        const char16_t *schema, int32_t ignored, const char16_t *separator,
                                        const char16_t *toleratedStates, char16_t *output, int32_t capacity);
/* The result column names of a prepared or executed statement, joined by separator
 * (0: tab); stops before a name that does not fit. 1 or 2. */
TABRA_API int32_t Tabra_GetColumnNamesFromRowSet(SQLHSTMT statement, char16_t separator, char16_t *output,
                                                 int32_t capacity);

/* Column facts from a prepared, never executed "SELECT column FROM table". */
/* The ODBC SQL type; 0 on any failure. */
TABRA_API int32_t Tabra_GetColumnDataType(SQLHDBC connection, const char16_t *table, const char16_t *column);
/* The column length; -1 on any failure. */
TABRA_API int32_t Tabra_GetColumnLength(SQLHDBC connection, const char16_t *table, const char16_t *column);
/* 1 filled (fields that could not be read stay 0), 2 on failure. */
TABRA_API int32_t Tabra_GetColumnProperties(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                            ColumnProperties *properties);
/* 1 or 0 (0 also on failure, which is shown). */
TABRA_API int32_t Tabra_IsColumnAutoIncrement(SQLHDBC connection, const char16_t *table, const char16_t *column);
TABRA_API int32_t Tabra_IsColumnUpdateable(SQLHDBC connection, const char16_t *table, const char16_t *column);
/* The first auto-increment column of the table: 1 and its name, 2 when there is none
 * or on failure. The capacity is handed to the driver as a byte count, so at most half
 * of the buffer is used. */
TABRA_API int32_t Tabra_FindFirstAutoIncrementField(SQLHDBC connection, const char16_t *table, char16_t *output,
                                                    int32_t capacity);

/* The primary-key columns in the driver's order joined by separator (null: tab); 1, or
 * 2 on failure and, without a message, for a driver that has no primary-key catalog. A
 * blank table gives 1 and an empty list. */
TABRA_API int32_t Tabra_GetPrimaryKeyColumns(SQLHDBC connection, const char16_t *table, int32_t flags,
                                             const char16_t *separator, char16_t *output, int32_t capacity);
/* The primary key's name (empty when the driver gives none); 1 or 2 as above. */
TABRA_API int32_t Tabra_GetPrimaryKeyName(SQLHDBC connection, const char16_t *table, uint8_t flags,
                                          char16_t *output, int32_t capacity);

/* The library's data-type code of an ODBC SQL type. */
TABRA_API int32_t Tabra_SqlDataTypeToTabraDataType(int32_t sqlType);
/* Fetched text made display text in place: numbers get the decimal character, ODBC 2
 * date/time values (9, 10, 11) the user's date form; everything else stays. */
TABRA_API void Tabra_OdbcDataToString(char16_t *text, int32_t capacity, int32_t sqlType, char16_t decimal);

/* ---- Table operations and aggregates ---- */

/* Drops schema.table (no schema: the table). 1 dropped, or already gone with
 * TABRA_DELETE_MISSING_OK; 2 not dropped (not confirmed, refused by the statement
 * hook, or a failure, shown). */
TABRA_API int32_t Tabra_DeleteTable(SQLHDBC connection, const char16_t *table, uint8_t flags);
TABRA_API int32_t Tabra_DeleteTableExtended(SQLHDBC connection, const char16_t *schema, const char16_t *table,
                                            uint8_t flags);
/* Renames by "SELECT * INTO new FROM old" and dropping old (keys and indexes are not
 * copied). 1 renamed; 2 when the new name is taken (quietly), the database cannot copy
 * (shown), or the old table could not be dropped (both tables then remain). */
TABRA_API int32_t Tabra_RenameTable(SQLHDBC connection, const char16_t *oldName, const char16_t *newName,
                                    uint8_t flags);
/* Leaves a free, non-empty name in place; otherwise writes name_1, name_2, ... (the
 * first that no table of any type has). */
TABRA_API void Tabra_CreateUniqueTableName(SQLHDBC connection, char16_t *name, int32_t capacity);
TABRA_API void OdbcEh_CreateUniqueTableName(int32_t context, SQLHDBC connection, const char16_t *schema,
                                            char16_t *name, int32_t capacity);

/* Record counts; 0 on any failure (shown) as well as for no records. The condition is
 * appended after " WHERE " exactly as given. */
TABRA_API int32_t Tabra_GetRecordCount(SQLHDBC connection, const char16_t *table, int32_t ignored);
TABRA_API int32_t Tabra_GetRecordCountExt(SQLHDBC connection, const char16_t *table, const char16_t *condition);
/* The rows a SELECT would return, counted by the database; TABRA_UNION_ROW_COUNT for a
 * statement with a blank-surrounded "UNION" (not run); 0 on any failure. */
TABRA_API int32_t Tabra_GetRowSetCount(SQLHDBC connection, const char16_t *statement);
/* max(column) / Sum(column) over the table (with an optional condition): 0 and the value
 * stored (0 over no rows), -1 on failure. */
TABRA_API int32_t Tabra_GetMaximum(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                   const char16_t *condition, double *result);
TABRA_API int32_t Tabra_AddFields(SQLHDBC connection, const char16_t *table, const char16_t *column,
                                  const char16_t *condition, double *result);
/* Runs the statement as given and counts the rows by fetching them; 0 on failure. */
TABRA_API int32_t OdbcEh_CountRows(int32_t context, SQLHDBC connection, const char16_t *statement);

TABRA_END_DECLS

#endif
