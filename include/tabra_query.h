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

/* ---- Descriptors in dialog rows ---- */

/* One condition row of a dialog: the control ids of its column box, operator box and
 * value box. A row table ends with a row whose column id is below 1; a row whose
 * column id is 1 separates groups (its other ids are not read). */
typedef struct ConditionRow {
    int32_t column;
    int32_t operation;
    int32_t value;
} ConditionRow;

/* Kinds of descriptor: selection operators (WHERE) and assignment operators (SET). */
#define TABRA_SELECTION_OPERATORS 1
#define TABRA_ASSIGNMENT_OPERATORS 2

/* The rows of the selection dialog (template 10019): one group of five conditions,
 * then three single-condition alternatives. For an initialiser:
 * static const ConditionRow rows[] = TABRA_SELECTION_DIALOG_ROWS; */
#define TABRA_SELECTION_DIALOG_ROWS                                                   \
    {{1011, 1012, 1013}, {1015, 1016, 1017}, {1018, 1019, 1020}, {1021, 1022, 1023},   \
     {1024, 1025, 1026}, {1, 1, 1},          {114, 115, 1035},   {1, 1, 1},            \
     {1027, 1028, 1029}, {1, 1, 1},          {1030, 1031, 1032}, {1, 1, 1},            \
     {0, 0, 0}}

/* Fills the boxes of every row (kind 1 or 2; any other kind does nothing): the operator
 * box gets the kind's operators (translated labels, item data the operator code) and a
 * last entry " " for no operator; with a columnList ("name\ttype\tname\ttype...", each
 * column's ODBC type kept as its entry's item data) the column and value boxes get the
 * columns, without one they are left as they are. Then the descriptor's groups are
 * shown in the blocks of rows between separators, one group per block (an empty group
 * leaves its block empty, so rows come back where they were written), one line per
 * row (empty lines are skipped; lines beyond a block are not shown): the column box's
 * text, the operator (the blank entry for an unknown key) and the value box's text. */
TABRA_API void Tabra_OpDesc_To_DialogItems(int32_t kind, const char16_t *descriptor, const char16_t *columnList,
                                           HWND dialog, const ConditionRow *rows);
/* Builds a descriptor from the rows into out (emptied first): for each row with an
 * operator and a column or value text, "column\tkey\tvalue\ttype\n" with the type taken
 * from the column box's entry of that text (0 when there is none); character 11 for
 * every separator row (each costs one character of room more than it takes). Column
 * texts are read up to 99 characters, values up to 199. Returns 0 for a null dialog or
 * out or outChars below 1, else 1 (out stays empty for a kind other than 1 or 2). */
TABRA_API int32_t Tabra_DialogItems_To_OpDesc(int32_t kind, HWND dialog, const ConditionRow *rows, char16_t *out,
                                              int32_t outChars);
/* Copies the entries (texts and item data) of the first row's column box into the
 * column boxes of the later rows and the value boxes of all rows, each emptied first.
 * Nothing when the first row's column box does not exist. */
TABRA_API void Tabra_OpDesc_Clone_Boxes(HWND dialog, const ConditionRow *rows);

/* ---- The selection dialog ---- */

/* Lets the user edit the selection descriptor in selDesc (capacity selDescChars) in the
 * selection dialog over the active window, with the columns of columnList (see
 * Tabra_OpDesc_To_DialogItems; may be null). The user may save the selection as a mask
 * file ("OSTREL-SMS" and the descriptor, UTF-16LE) and load one. Returns 1 for OK
 * (selDesc rewritten) and 2 for Cancel (selDesc untouched), or 2 at once for a null
 * selDesc or a capacity below 10. The reserved values are kept and not used. */
TABRA_API int32_t Tabra_Edit_SelDesc(char16_t *selDesc, int32_t selDescChars, const char16_t *columnList,
                                     LPARAM reserved1, LPARAM reserved2);
TABRA_API INT_PTR EditSelDesc_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

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

/* ---- The select statement wizard ---- */

/* Flag of Tabra_SelectStatementWizzard: the user may select several tables. */
#define TABRA_SELWIZZ_SEVERAL_TABLES 1

/* Lets the user compose a SELECT in dialog 10042: tables of the data source (by object
 * type and schema), the columns in their order or all columns, a sort column. The
 * statement in the buffer (capacity statementChars) is read back into the dialog
 * first (tables, the first sort column, the columns). Returns 1 after OK with the
 * statement the dialog shows in the buffer (cut to statementChars - 1 characters), 2
 * after Cancel or when no working area could be had (message 1600), the buffer
 * untouched. reserved is kept and not used. The schema is the data source's last one
 * (registry value "LastUsedDbaseSchema" under the data source's name). */
TABRA_API int32_t Tabra_SelectStatementWizzard(SQLHDBC connection, char16_t *statement, int32_t statementChars,
                                               HWND parent, int32_t flags, int32_t reserved);
TABRA_API INT_PTR SelWizz_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

TABRA_END_DECLS

#endif
