/* Tabra: the system table store and string escaping.
 *
 * Small named settings kept in the user's own database, in the table "OstrelSysTable"
 * (Object VARCHAR (100), Type VARCHAR (50), ItemName VARCHAR (50), ItemValue of a type
 * chosen by the database), each value filed under object, type and item name. The
 * table is created on first use. The store never shows a message: its statements
 * tolerate every failure, which shows only in the results (and in a read falling back
 * to its default). Keys are put into the statements as given: they must not contain
 * apostrophes. Values are stored escaped and survive any text that fits. */
#ifndef TABRA_SYSTABLE_H
#define TABRA_SYSTABLE_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Creates the system table: 1 created, 2 not (the failure is shown). */
TABRA_API int32_t Tabra_CreateSystemTable(SQLHDBC connection);
/* The value of an item into output, or defaultValue when it is missing or empty. The
 * default is copied first, so output always holds a text. 1 read (or defaulted); 0 for
 * a null output or a capacity below 1; 2 when the table could not be created. */
TABRA_API int32_t Tabra_ReadSysTableString(SQLHDBC connection, const char16_t *object, const char16_t *type,
                                           const char16_t *itemName, const char16_t *defaultValue,
                                           char16_t *output, int32_t capacity);
/* Replaces the item's value; an empty value removes the item. 1 written (or nothing to
 * do for a blank key), 2 not written. */
TABRA_API int32_t Tabra_WriteSysTableString(SQLHDBC connection, const char16_t *object, const char16_t *type,
                                            const char16_t *itemName, const char16_t *value);
/* Removes one item, or with a blank item name every item of the object and type. 1 done
 * (or a blank object or type), 0 when there is no system table. */
TABRA_API int32_t Tabra_DeleteSysTableItem(SQLHDBC connection, const char16_t *object, const char16_t *type,
                                           const char16_t *itemName);

/* Escapes the text in place (capacity characters): tab \t, line feed \n, carriage
 * return \r, " \q, ' \Q, backslash \\, other control characters \xHH. The text is cut
 * where fewer than 11 characters of room remain. */
TABRA_API void Tabra_EncodeString(char16_t *text, int32_t capacity);
/* Undoes Tabra_EncodeString in place. */
TABRA_API void Tabra_DecodeString(char16_t *text);

TABRA_END_DECLS

#endif
