/* Tabra: SQL text. The statement formatter and the preparation of identifiers:
 * every table and column name a user picks reaches SQL through these. */
#ifndef TABRA_SQLTEXT_H
#define TABRA_SQLTEXT_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Formats a statement from a placeholder language: %t and %f take the next argument
 * as a table or field name prepared for the connection, %s copies the next argument
 * as it stands (at most 299 characters), %. writes "." when the last argument taken
 * was not blank; any other "%x" vanishes. Up to seven arguments are used; callers
 * pass null for the unused ones. The destination is always terminated when size >= 1;
 * a statement that does not fit is cut at the last piece that fits. */
TABRA_API void Tabra_SprintfSqlStatement(SQLHDBC connection, char16_t *destination, int32_t size,
                                         const char16_t *format, const char16_t *a1, const char16_t *a2,
                                         const char16_t *a3, const char16_t *a4, const char16_t *a5,
                                         const char16_t *a6, const char16_t *a7, const char16_t *a8);

/* Prepares a (dotted) name for SQL with the connection's identifier quote character:
 * each part is freed of surrounding spaces and quotes and quoted again unless it is
 * a plain identifier, "*" or blank. A driver that does not quote gets the name as it
 * stands. The fifth value is ignored. */
TABRA_API void Tabra_PrepareNameForSql92(SQLHDBC connection, const char16_t *name, char16_t *destination,
                                         int32_t size, int32_t ignored);
/* Rewrites a separated list in place, each item prepared as above, joined by the
 * output separator. */
TABRA_API void Tabra_PrepareNameListForSql92(SQLHDBC connection, char16_t *list, int32_t size,
                                             char16_t inputSeparator, char16_t outputSeparator);
/* Wraps the name in the quote string unless it is a plain identifier (no stripping,
 * no check for a driver that does not quote). */
TABRA_API void Tabra_QuoteNameIfNotPureSql(SQLHDBC connection, char16_t *name, int32_t size);

/* The bracket family, which needs no connection. Flag 1: plain identifiers stay bare.
 * Returns 0 for bad arguments, 1 for a blank name (left as it is), otherwise the
 * length of the prepared name. Only the first two dotted parts are kept. */
TABRA_API int32_t Tabra_PrepareNameForSql(char16_t *name, int32_t size, int32_t flags);
/* Prepares each tab-separated item of list and joins them by "," into destination.
 * The separator must be non-zero; the list is split at tabs whatever it is. */
TABRA_API void Tabra_PrepareNameListForSql(const char16_t *list, char16_t separator, char16_t *destination,
                                           int32_t size, int32_t flags);

/* Removes surrounding blanks and one quote character from both ends of each dotted
 * part, in place. */
TABRA_API void Tabra_StripDelimitersFromName(SQLHDBC connection, char16_t *name);
TABRA_API void Tabra_StripBracketsFromSqlName(char16_t *name);
/* Splits a qualified name at the first "." into schema and table; with a connection
 * that does not know schemas the whole name is the table. Sizes below 2 write nothing. */
TABRA_API void Tabra_ParseSchemaAndTable(SQLHDBC connection, const char16_t *name, char16_t *schema,
                                         int32_t schemaSize, char16_t *table, int32_t tableSize);

TABRA_END_DECLS

#endif
