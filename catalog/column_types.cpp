// The shared column type table's lookups and the column type text on a database.
#include "catalog/column_types.h"

#include <string>

namespace tabra::catalog {

const ColumnType &columnTypeAt(int32_t index) {
    return index >= 0 && static_cast<size_t>(index) < kColumnTypes.size() ? kColumnTypes[static_cast<size_t>(index)]
                                                                           : kColumnTypes[0];
}

const ColumnType *findColumnType(int32_t tabraDataType) {
    for (const ColumnType &type : kColumnTypes)
        if (type.tabraDataType != 0 && type.tabraDataType == tabraDataType) return &type;
    return nullptr;
}

const char16_t *columnTypePattern(const connection::Capabilities &database, const ColumnType &type) {
    const char16_t *own = database.typePatternFor(type.tabraDataType);
    return own != nullptr ? own : type.pattern;
}

std::u16string columnTypeText(const connection::Capabilities &database, const ColumnType &type, int32_t length) {
    const char16_t *pattern = columnTypePattern(database, type);
    std::u16string text = pattern != nullptr ? pattern : u"";
    auto at = text.find(u"%d");
    if (at != std::u16string::npos) {
        std::string digits = std::to_string(length);
        text.replace(at, 2, std::u16string(digits.begin(), digits.end()));
    }
    return text;
}

} // namespace tabra::catalog
