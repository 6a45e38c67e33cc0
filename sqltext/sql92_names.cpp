// Names prepared with the connection's identifier quote character. Plain identifiers
// stay bare; every other dotted part is unquoted first and quoted once.
#include "ostrel.h"
#include "sqltext/identifier_rules.h"
#include "tabra_sqltext.h"

#include <algorithm>
#include <string>

using namespace tabra::sqltext;

namespace {

constexpr int32_t kItemCapacity = 200; // one list item: 199 characters and a terminator

} // namespace

extern "C" void Tabra_PrepareNameForSql92(SQLHDBC connection, const char16_t *name, char16_t *destination,
                                          int32_t size, int32_t) {
    if (destination == nullptr || size < 1) return;
    if (Ostrel_IsBlankString(name)) {
        destination[0] = u'\0';
        return;
    }
    std::u16string quote = quoteStringOf(connection);
    if (quote.empty()) {
        OstrelCopyString(destination, name, size);
        return;
    }
    writePreparedName(name, quote, destination, size);
}

extern "C" void Tabra_PrepareNameListForSql92(SQLHDBC connection, char16_t *list, int32_t size,
                                              char16_t inputSeparator, char16_t outputSeparator) {
    if (list == nullptr || size < 1) return;
    std::u16string copy(list, std::find(list, list + size, u'\0'));

    int32_t remaining = size;
    int32_t position = 0;
    int32_t tokenPosition = 0;
    bool first = true;
    char16_t item[kItemCapacity];
    char16_t prepared[kItemCapacity];
    while (Ostrel_ReadToken(copy.c_str(), &tokenPosition, inputSeparator, item, kItemCapacity) == 1) {
        prepared[0] = u'\0';
        if (!Ostrel_IsBlankString(item)) {
            std::u16string quote = quoteStringOf(connection); // asked again for every item
            if (quote.empty())
                OstrelCopyString(prepared, item, kItemCapacity);
            else
                writePreparedName(item, quote, prepared, kItemCapacity);
        }
        // The separator is written when 3 characters remain and not counted; an item
        // only when it fits. Nothing is ever written past the end of the list buffer.
        if (!first && remaining >= 3 && position < size - 1) list[position++] = outputSeparator;
        first = false;
        auto length = static_cast<int32_t>(std::char_traits<char16_t>::length(prepared));
        if (remaining > length) {
            int32_t fits = std::min(length, size - 1 - position);
            std::copy_n(prepared, fits, list + position);
            position += fits;
            remaining -= length;
        }
    }
    if (remaining >= 1) list[std::min(position, size - 1)] = u'\0';
}

extern "C" void Tabra_QuoteNameIfNotPureSql(SQLHDBC connection, char16_t *name, int32_t size) {
    if (name == nullptr || size < 1) return;
    std::u16string current(name, std::find(name, name + size, u'\0'));
    if (isPlainIdentifier(current)) return;
    // No stripping and no test for a driver that does not quote: a space quote string
    // wraps the name in spaces, and a quoted name is quoted again.
    char16_t quote[11] = {}; // 10 handed over; some drivers count it in characters
    SQLSMALLINT length = 0;
    SQLGetInfoW(connection, SQL_IDENTIFIER_QUOTE_CHAR, quote, 10, &length);
    quote[4] = u'\0'; // a quote string has at most 4 characters
    std::u16string wrapped = wrapBounded(current, quote, static_cast<size_t>(size));
    OstrelCopyString(name, wrapped.c_str(), size);
}
