// Reading, writing and deleting the items of the system table. Every statement here
// tolerates every failure, so the store never shows a message: a failure shows in the
// result, or as a read that falls back to its default.
#include "systable/system_table.h"
#include "systable/system_table_items.h"
#include "systable/system_table_literal.h"
#include "ostrel.h"
#include "rowset/row_set.h"
#include "tabra_systable.h"

#include <string>

using namespace tabra::systable;

namespace {

constexpr int32_t kWorkCapacity = 10000;

// Runs a statement of the store for its effect; one that did not fit is not run (2).
int32_t perform(SQLHDBC connection, const std::optional<std::u16string> &statement) {
    if (!statement) return 2;
    return tabra::rowset::performStatement(connection, statement->c_str(), kAnyState);
}

} // namespace

int32_t tabra::systable::readItemInto(SQLHDBC connection, const char16_t *object, const char16_t *type,
                                      const char16_t *itemName, const char16_t *defaultValue, char16_t *output,
                                      int32_t capacity) {
    OstrelCopyString(output, defaultValue, capacity);
    if (Ostrel_IsBlankString(object) || Ostrel_IsBlankString(type)) return 1;
    if (output == nullptr || capacity < 1) return 0;
    if (const int32_t ensured = ensureSystemTable(connection); ensured != 1) return ensured;

    const auto statement =
        formatSystemTableStatement(kReadItemStatement, {systemTableName, object, type, itemName ? itemName : u""});
    if (!statement || tabra::rowset::selectToBuffer(connection, statement->c_str(), u"\t", u"\t", output, capacity,
                                                    kAnyState, 0) != 1)
        output[0] = u'\0';
    if (Ostrel_IsBlankString(output)) OstrelCopyString(output, defaultValue, capacity);
    // The stored form becomes the value again (a default passes the same way).
    Ostrel_DecodeString(output);
    return 1;
}

std::u16string tabra::systable::readItem(SQLHDBC connection, const std::u16string &object, const std::u16string &type,
                                        const std::u16string &itemName, const std::u16string &defaultValue,
                                        int32_t capacity) {
    if (capacity < 1) return {};
    std::u16string value(static_cast<size_t>(capacity), u'\0');
    if (readItemInto(connection, object.c_str(), type.c_str(), itemName.c_str(), defaultValue.c_str(), value.data(),
                     capacity) != 1)
        return defaultValue.substr(0, static_cast<size_t>(capacity) - 1);
    value.resize(std::char_traits<char16_t>::length(value.c_str()));
    return value;
}

extern "C" int32_t Tabra_ReadSysTableString(SQLHDBC connection, const char16_t *object, const char16_t *type,
                                            const char16_t *itemName, const char16_t *defaultValue,
                                            char16_t *output, int32_t capacity) {
    return tabra::systable::readItemInto(connection, object, type, itemName, defaultValue, output, capacity);
}

namespace {

int32_t writeItemText(SQLHDBC connection, const char16_t *object, const char16_t *type, const char16_t *itemName,
                      const char16_t *value) {
    if (Ostrel_IsBlankString(object) || Ostrel_IsBlankString(type) || Ostrel_IsBlankString(itemName)) return 1;
    if (const int32_t ensured = ensureSystemTable(connection); ensured != 1) return ensured;

    // Delete before insert keeps (object, type, item name) unique: the table has no key.
    perform(connection, formatSystemTableStatement(kDeleteItemStatement, {systemTableName, object, type, itemName}));
    if (Ostrel_IsBlankString(value)) return 1;

    std::u16string work(kWorkCapacity, u'\0');
    // A value whose escaped form does not fit is not written (the item stays deleted).
    if (Ostrel_EncodeString(value, work.data(), kWorkCapacity, OSTREL_ENCODE_GENERAL) < 0) return 2;
    Ostrel_Replace(work.data(), kWorkCapacity, u"'", u"''", 0);
    const std::u16string literal = valueLiteralText(connection, work.c_str());
    return perform(connection,
                   formatSystemTableStatement(kWriteItemStatement, {systemTableName, object, type, itemName, literal}));
}

int32_t deleteItemText(SQLHDBC connection, const char16_t *object, const char16_t *type, const char16_t *itemName) {
    if (Ostrel_IsBlankString(object) || Ostrel_IsBlankString(type)) return 1;
    if (!systemTableExists(connection)) return 0;
    if (Ostrel_IsBlankString(itemName))
        return perform(connection, formatSystemTableStatement(kDeleteItemsStatement, {systemTableName, object, type}));
    return perform(connection, formatSystemTableStatement(kDeleteItemStatement, {systemTableName, object, type, itemName}));
}

} // namespace

extern "C" int32_t Tabra_WriteSysTableString(SQLHDBC connection, const char16_t *object, const char16_t *type,
                                             const char16_t *itemName, const char16_t *value) {
    return writeItemText(connection, object, type, itemName, value);
}

extern "C" int32_t Tabra_DeleteSysTableItem(SQLHDBC connection, const char16_t *object, const char16_t *type,
                                            const char16_t *itemName) {
    return deleteItemText(connection, object, type, itemName);
}

int32_t tabra::systable::writeItem(SQLHDBC connection, const std::u16string &object, const std::u16string &type,
                                   const std::u16string &itemName, const std::u16string &value) {
    return writeItemText(connection, object.c_str(), type.c_str(), itemName.c_str(), value.c_str());
}

int32_t tabra::systable::deleteItems(SQLHDBC connection, const std::u16string &object, const std::u16string &type,
                                     const std::u16string &itemName) {
    return deleteItemText(connection, object.c_str(), type.c_str(), itemName.c_str());
}
