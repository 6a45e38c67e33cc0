// The items of the system table as C++: what Tabra_ReadSysTableString,
// Tabra_WriteSysTableString and Tabra_DeleteSysTableItem do, over work text. Every
// statement tolerates every failure, so nothing here shows a message.
#pragma once

#include <sql.h>

#include <cstdint>
#include <string>

namespace tabra::systable {

// The value of an item, at most capacity - 1 characters, or defaultValue when the item
// is missing or blank (also when the table could not be created).
std::u16string readItem(SQLHDBC connection, const std::u16string &object, const std::u16string &type,
                        const std::u16string &itemName, const std::u16string &defaultValue, int32_t capacity);

// Replaces the item's value; a blank value removes the item. 1, or 2 when the table
// could not be created or the value not written.
int32_t writeItem(SQLHDBC connection, const std::u16string &object, const std::u16string &type,
                  const std::u16string &itemName, const std::u16string &value);

// Removes one item, or with an empty item name every item of the object and type; 1
// done, 0 when there is no system table.
int32_t deleteItems(SQLHDBC connection, const std::u16string &object, const std::u16string &type,
                    const std::u16string &itemName = {});

// The reader over a caller's buffer (Tabra_ReadSysTableString).
int32_t readItemInto(SQLHDBC connection, const char16_t *object, const char16_t *type, const char16_t *itemName,
                     const char16_t *defaultValue, char16_t *output, int32_t capacity);

} // namespace tabra::systable
