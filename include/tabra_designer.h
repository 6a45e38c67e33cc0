/* Tabra: the query designer.
 *
 * A designer holds a SELECT statement as four lists: the tables (with their joins),
 * the result columns, the selection (one selection descriptor, see tabra_query.h) and
 * the sort order, and turns them into SQL text. The lists travel as descriptors, texts
 * of lines ended by character 10 with tab-separated fields, so that a caller can store
 * them and set them again later:
 *
 *   kind 1, tables:  name \t alias \t join key \t comparison key \t left column \t right column
 *   kind 2, columns: expression \t alias
 *   kind 3, sort:    column \t direction ("ASC", "DESC" or empty)
 *   kind 4, the selection descriptor itself
 *
 * Join keys: empty (the table follows a ", "), "LJ" LEFT JOIN, "IJ" INNER JOIN, "RJ"
 * RIGHT JOIN. Comparison keys of the ON condition: "EQ" =, "NE" <>, and "GT" <,
 * "GE" <=, "LT" >, "LE" >= (these four write the opposite symbol of their name, as the
 * descriptors stored by earlier versions expect). Keys are read without regard to
 * case; an unknown key reads as the first entry of its table. Texts of the lists are
 * used as stored: whoever fills them decides the quoting of names.
 *
 * A designer made with TABRA_SELFACT_VIEW builds a view: its LIKE patterns use "*" on
 * databases of type DbAccess, and its statement test creates and drops a view. */
#ifndef TABRA_DESIGNER_H
#define TABRA_DESIGNER_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* The designer behind its handle; owned by the caller from Create to Destroy. */
typedef struct SelFactObject *SelFact;

/* Results of the designer functions. */
#define TABRA_SELFACT_OK 0
#define TABRA_SELFACT_NO_HANDLE 1000
#define TABRA_SELFACT_NO_MEMORY 1001

/* Flags of Tabra_SelFact_Create. */
#define TABRA_SELFACT_VIEW 1u /* the statement defines a view */

/* Descriptor kinds of Tabra_SelFact_GetDescriptor and Tabra_SelFact_SetDescriptor. */
#define TABRA_SELFACT_TABLES 1
#define TABRA_SELFACT_COLUMNS 2
#define TABRA_SELFACT_SORT_ORDER 3
#define TABRA_SELFACT_SELECTION 4

/* Makes a designer with four empty lists for the connection (used to quote the
 * selection's names, to ask the database type and to test the statement), the schema
 * of the test view (at most 99 characters are kept; null for none) and the flags.
 * Returns 0 with the handle in *handleOut, 1001 when memory runs out (*handleOut is
 * then null), 1000 for a null handleOut. */
TABRA_API int32_t Tabra_SelFact_Create(SelFact *handleOut, SQLHDBC connection, const char16_t *schema,
                                       uint32_t flags);
/* Frees the designer and its lists; a null handle is ignored. */
TABRA_API void Tabra_SelFact_Destroy(SelFact handle);
/* Writes the statement into out, cut to outChars - 1 characters: "SELECT", the
 * columns ("expression AS alias", joined by ", "), " FROM " and the tables, " WHERE "
 * and the selection's condition, " ORDER BY " and the sort columns (a direction other
 * than ASC behind its column); empty lists leave their part out, so an empty designer
 * gives "SELECT". Items are cut at 999 characters and each part at 9,999. Returns 0
 * (nothing is written for a null out or outChars below 1), 1000 for a null handle. The
 * last argument is not used. */
TABRA_API int32_t Tabra_SelFact_CreateSql(SelFact handle, char16_t *out, int32_t outChars, int32_t reserved);
/* Reads nothing: a statement is not taken apart into the lists; keep the descriptors
 * instead. Returns 0, or 1000 for a null handle. */
TABRA_API int32_t Tabra_SelFact_ParseSql(SelFact handle, const char16_t *sql, int32_t reserved);
/* Writes the descriptor of a kind (1 to 4) into out, cut to outChars - 1 characters:
 * one line per entry (each at most 999 characters), joined by character 10, empty
 * fields for missing texts. Kinds 1 to 3 leave out untouched for a null out or
 * outChars below 2. Other kinds and a null handle do nothing. */
TABRA_API void Tabra_SelFact_GetDescriptor(SelFact handle, int32_t kind, char16_t *out, int32_t outChars);
/* Replaces the list of a kind (1 to 4) by the descriptor in text (a blank text empties
 * it); lines are read up to 999 characters, blank fields are missing texts. Other
 * kinds and a null handle do nothing. */
TABRA_API void Tabra_SelFact_SetDescriptor(SelFact handle, int32_t kind, const char16_t *text);
/* Edits the designer's lists in the designer dialog (template 10064) over parent (null:
 * the active window), on a copy: a tab page per list (tables with their joins, result
 * columns with their aliases, the selection's condition rows, the sort order with its
 * directions) above the statement they build; the user may choose the schema the
 * tables are offered from and test the statement. Returns 1 after OK (the copy's lists
 * replace the designer's), 2 after Cancel, for a null handle, or when memory runs out
 * (message 1600 shown). */
TABRA_API int32_t Tabra_SelFact_Edit(SelFact handle, HWND parent);
/* The procedures of the designer dialog, its tab pages, the join dialog (a table of the
 * statement with its join) and the column dialog (a result column). */
TABRA_API INT_PTR SelFact_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR Tables_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR Columns_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR Selection_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR OrderBy_SubDialog_Callback(HWND page, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR SelFactTable_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
TABRA_API INT_PTR EditSelFactColumn_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);
/* Shows what a designer result means to the user: message 1600 for 1001 (out of
 * memory), nothing for other codes. Returns 1. */
TABRA_API int32_t Tabra_SelFact_DisplayError(int32_t code);

TABRA_END_DECLS

#endif
