/* Tabra: row-set transfer.
 *
 * Each OdbcEh_SelectRowSetTo* call runs one complete statement and moves its result
 * somewhere in the same call: into a list or combo box, a list view, a delimited
 * UTF-16LE file or a caller's buffer; OdbcEh_PerformSqlStatement runs a statement for
 * its effect. They share one prologue: the target and a non-blank statement are
 * required (else 2, no message); a statement handle is allocated for the call and
 * dropped on every path; the statement passes the statement hook
 * (Ostrel_DumpSqlStatement) first and is quietly not run when the hook refuses it.
 *
 * The first argument is the caller's error context of OdbcEh_HandleErrorHdbc /
 * OdbcEh_HandleErrorHstmt, which report failures with the statement text. tolerated
 * lists SQLSTATEs (comma separated; "*" any; null none) whose failures are not
 * reported: the operation then ends quietly, and only OdbcEh_PerformSqlStatement
 * counts it as success. Values are fetched as text, so every value arrives in the
 * driver's text form. Results are 1 (done) or 2 (failed, refused or bad arguments). */
#ifndef TABRA_ROWSET_H
#define TABRA_ROWSET_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Flags of OdbcEh_SelectRowSetToFile and OdbcEh_SelectRowSetToBuffer. */
#define TABRA_ROWSET_QUOTE_TEXT 0x01u    /* text (and, with 0x10, date) values in '...', ' doubled */
#define TABRA_ROWSET_HEADER 0x02u        /* first record: the column names */
#define TABRA_ROWSET_ZERO_NUMBERS 0x08u  /* a NULL or blank number is written as 0 */
#define TABRA_ROWSET_DIGIT_DATES 0x10u   /* dates and times as YYYYMMDDhhmmss */
#define TABRA_ROWSET_ENCODE_TEXT 0x20u   /* text values escaped (Ostrel_EncodeString, mode 2) */
#define TABRA_ROWSET_PROGRESS 0x40u      /* a progress indicator above 100 expected rows */

/* Flags of OdbcEh_SelectRowSetToListView (0x80 is also the box's flag). */
#define TABRA_ROWSET_KEY_NUMBER 0x04u    /* column 1 is a number: the item's parameter */
#define TABRA_ROWSET_KEY_TEXT 0x80u      /* column 1 (box: column 2) as a heap text: item data */

/* Runs the statement for its effect: 1 when it ran or failed with a tolerated state. */
TABRA_API int32_t OdbcEh_PerformSqlStatement(int32_t context, SQLHDBC connection, const char16_t *statement,
                                             const char16_t *tolerated);
/* Empties the box and adds column 1 of each row; a second column that is not NULL gives
 * the item data: its number, or with flags bit 0x80 (a negative flags byte) a heap copy
 * of its text that the box owns from then on (allocated with malloc: release it with
 * free() when the entry goes). */
TABRA_API int32_t OdbcEh_SelectRowSetToBox(int32_t context, SQLHDBC connection, const char16_t *statement,
                                           HWND box, const char16_t *tolerated, int8_t flags);
/* Empties the list view and inserts an item per row whose sub-items 0, 1, ... hold the
 * columns in order (NULL as empty text); with TABRA_ROWSET_KEY_NUMBER or
 * TABRA_ROWSET_KEY_TEXT column 1 becomes the item's parameter instead. */
TABRA_API int32_t OdbcEh_SelectRowSetToListView(int32_t context, SQLHDBC connection, const char16_t *statement,
                                                HWND listView, const char16_t *tolerated, uint32_t flags);
/* Writes the rows to a new file (replacing one that is there) as UTF-16LE text without a
 * byte order mark: fields joined by fieldSeparator (null or empty: tab), records by
 * recordSeparator (null or empty: line feed), none after the last record. rowCount (may
 * be null) holds on entry the rows expected, for the progress indicator, and on return
 * the records written (the header included). A user abort is a success: the records
 * written so far stay in the file and are counted. The file is written beside the
 * target and replaces it only when the transfer succeeds: after a failure no partial
 * file is left and an existing file is as it was. A file that cannot be created is
 * reported through Ostrel_ErrorHandler (caption 2903). */
TABRA_API int32_t OdbcEh_SelectRowSetToFile(int32_t context, SQLHDBC connection, const char16_t *statement,
                                            const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                            const char16_t *fileName, int32_t *rowCount, const char16_t *tolerated,
                                            uint32_t flags);
/* The text OdbcEh_SelectRowSetToFile would write, into output: at most capacity - 1
 * whole characters, terminated. 2 for a null output or a capacity below 3. */
TABRA_API int32_t OdbcEh_SelectRowSetToBuffer(int32_t context, SQLHDBC connection, const char16_t *statement,
                                              const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                              char16_t *output, int32_t capacity, const char16_t *tolerated,
                                              uint32_t flags);

TABRA_END_DECLS

#endif
