/* Tabra: selection descriptors and SELECT clause editing.
 *
 * A selection descriptor is one flat wide text: groups separated by character 11
 * (alternatives, joined by OR), each group made of lines ended by character 10 (all
 * hold, joined by AND), each line four tab-separated fields: column, operator key,
 * value, ODBC SQL data type in decimal. Read with the assignment operators the same
 * text is an operation descriptor (SET lists). Connections serve identifier quoting
 * only and may be null (names then stay as they are). */
#ifndef TABRA_QUERY_H
#define TABRA_QUERY_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* ---- Selection descriptors ---- */

/* Writes the condition of a selection descriptor (without the word WHERE) into out:
 * groups joined by " OR ", conditions of a group by " AND " inside parentheses.
 * Column names are quoted for the connection; values are formatted by the line's data
 * type (numbers read with comma as decimal separator and the point dropped, dates in
 * the user's format written as ODBC date constants, everything else in '...', quotes
 * not doubled). Lines with an empty column, an unknown key or a missing value are
 * dropped. expansionChars holds the any-string wildcard, the single-character
 * wildcard, the opening and the closing quote of LIKE patterns ("%_''" in the plain
 * form). Returns -1 for a null out or outChars below 1, else 0 (out empty when nothing
 * survived). A cut result may end in " AND " or " OR ". */
TABRA_API int32_t Tabra_SelDesc_To_WhereClause(SQLHDBC connection, const char16_t *selDesc, char16_t *out,
                                               int32_t outChars);
TABRA_API int32_t Tabra_SelDesc_To_WhereClause_Expanded(SQLHDBC connection, const char16_t *selDesc,
                                                        char16_t *out, int32_t outChars,
                                                        const char16_t *expansionChars);
/* Writes the assignment list of the first group of an operation descriptor (without
 * the word SET) into out, "a=NULL,b=7,c=d": SNU null, SCO a literal, SFI a column,
 * SFO the value as typed. Nothing for a null out or outChars below 1. */
TABRA_API void Tabra_OpDesc_To_SetClause(SQLHDBC connection, const char16_t *opDesc, char16_t *out,
                                         int32_t outChars);

/* ---- SELECT clause editing ---- */

/* Copies the clause named by keyword (and secondKeyword, or null: "ORDER" "BY") of
 * statement into out: the text behind the keyword(s) up to the next clause keyword
 * at the top level, without surrounding blanks. Returns -1 for a null out or outChars
 * below 1, else 0 (out empty when the statement is empty or has no such clause). */
TABRA_API int32_t Tabra_Select_Get_Clause(const char16_t *statement, const char16_t *keyword,
                                          const char16_t *secondKeyword, char16_t *out, int32_t outChars);

/* Replace one clause of the statement in place (capacity characters); an empty or null
 * text removes it (SELECT and FROM keep their keyword). Keywords are rewritten in
 * upper case. The column and table list replacements first make the statement
 * "SELECT FROM" when it lacks the keyword SELECT or FROM; the WHERE and ORDER BY
 * replacements then move the WHERE clause directly behind the table list. Return 0,
 * or -1 for a null statement or a capacity below 1. The last arguments are ignored. */
TABRA_API int32_t Tabra_Select_Replace_FieldsClause(char16_t *statement, int32_t capacity, const char16_t *fields,
                                                    int32_t ignored);
TABRA_API int32_t Tabra_Select_Replace_TablesClause(char16_t *statement, int32_t capacity,
                                                    const char16_t *tables);
TABRA_API int32_t Tabra_Select_Replace_WhereClause(char16_t *statement, int32_t capacity,
                                                   const char16_t *condition);
TABRA_API int32_t Tabra_Select_Replace_OrderByClause(char16_t *statement, int32_t capacity,
                                                     const char16_t *sortList, int32_t ignored);

/* Flags of the scanners and the clause-to-box functions. */
#define TABRA_SCAN_DESC_WORD 2u       /* sort scan: " DESC" behind descending columns */
#define TABRA_SCAN_DIRECTION_MARK 4u  /* sort scan: "\tD" or "\tA" behind every column */
#define TABRA_BOX_WITH_DIRECTION 8u   /* sort box: "\t" and the direction label */
#define TABRA_BOX_WITH_ALIAS 16u      /* columns box: "\t" and the alias when there is one */

/* Scanners: the names of the clause's items joined by separator (null: ","), with
 * identifier delimiters stripped. Columns: each item's last word (its result name).
 * Tables: each item's first word ("OUTER" skipped; aliases dropped). Sort: each
 * item's column, with direction marks by flags. Return -1 for a null out or outChars
 * below 1, 0 for an empty statement; the column and table scans return -1 when the
 * statement lacks a SELECT or FROM clause, the sort scan 0 when it has no ORDER BY.
 * Items are split at "," outside quoted identifiers only: COUNT(a,b) splits. The
 * Tabra_Select_Scan_* forms use no connection and flags 0. */
TABRA_API int32_t Tabra_SelectScanFieldsClause(SQLHDBC connection, const char16_t *statement,
                                               const char16_t *separator, uint32_t flags, char16_t *out,
                                               int32_t outChars);
TABRA_API int32_t Tabra_SelectScanTablesClause(SQLHDBC connection, const char16_t *statement,
                                               const char16_t *separator, uint32_t flags, char16_t *out,
                                               int32_t outChars);
TABRA_API int32_t Tabra_SelectScanOrderByClause(SQLHDBC connection, const char16_t *statement,
                                                const char16_t *separator, uint32_t flags, char16_t *out,
                                                int32_t outChars);
TABRA_API int32_t Tabra_Select_Scan_FieldsClause(const char16_t *statement, const char16_t *separator,
                                                 int32_t ignored, char16_t *out, int32_t outChars);
TABRA_API int32_t Tabra_Select_Scan_TablesClause(const char16_t *statement, const char16_t *separator,
                                                 int32_t ignored, char16_t *out, int32_t outChars);
TABRA_API int32_t Tabra_Select_Scan_OrderByClause(const char16_t *statement, const char16_t *separator,
                                                  int32_t ignored, char16_t *out, int32_t outChars);

/* ---- Clause lists in list boxes ---- */

/* Clause to box: the box is emptied and gets one entry per item; they return the
 * number of entries added. Columns: "column" or (flag 16) "column\talias", item data
 * 0. Tables: the table name. Sort: "column" or (flag 8) "column\tlabel" with the
 * translated label of ascending or descending, item data 1 for descending, else 0.
 * Box to clause: names quoted for the connection, joined by ","; columns with
 * " AS alias", sort columns with " DESC" where the item data is not 0; the list
 * replaces the clause (see the Replace functions). Return 0, or -1 when the
 * replacement fails. */
TABRA_API int32_t Tabra_Select_FieldsClause_To_FieldsBox(SQLHDBC connection, const char16_t *statement,
                                                         uint32_t flags, HWND box);
TABRA_API int32_t Tabra_Select_FieldsBox_To_FieldsClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                         int32_t capacity);
TABRA_API int32_t Tabra_Select_TablesClause_To_TablesBox(SQLHDBC connection, const char16_t *statement,
                                                         uint32_t flags, HWND box);
TABRA_API int32_t Tabra_Select_TablesBox_To_TablesClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                         int32_t capacity);
TABRA_API int32_t Tabra_Select_OrderByClause_To_OrderByBox(SQLHDBC connection, const char16_t *statement,
                                                           uint32_t flags, HWND box);
TABRA_API int32_t Tabra_Select_OrderByBox_To_OrderByClause(SQLHDBC connection, HWND box, char16_t *statement,
                                                           int32_t capacity);
/* Flips the direction of sort entry index (-1: the selected one): the entry becomes
 * "column\tlabel" with item data 1 (descending) or 0, stays at its index and is
 * selected. Returns the selection result (the index), -1 when there is no entry. */
TABRA_API int32_t Tabra_OrderByBox_ToggleDirection(HWND box, int32_t index);
/* Edits the alias of column entry index (-1: the selected one) in dialog 10006, whose
 * field accepts letters, the digits 1-9 and "_" only (anything else beeps and is
 * removed). Returns 1 after the entry was rewritten, 2 when nothing is selected or
 * the dialog was cancelled. */
TABRA_API int32_t Tabra_FieldsBox_EditAlias(HWND box, int32_t index);
TABRA_API INT_PTR EditAlias_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

TABRA_END_DECLS

#endif
