// Names prepared with the connection's identifier quote character. Plain identifiers
// stay bare; every other dotted part is unquoted first and quoted once.
#include "sqltext/sql92_names.h"

#include "core/connection/connection_info.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/identifier_rules.h"
#include "tabra_sqltext.h"

#include <algorithm>
#include <string>

using namespace tabra::sqltext;
using tabra::connection::IdentifierQuote;
using tabra::connection::identifierQuote;
using tabra::platform::boundedPrefix;
using tabra::platform::viewOf;

namespace {

constexpr int32_t kItemCapacity = 200; // one list item: 199 characters and a terminator

} // namespace

namespace tabra::sqltext {

void prepareNameForSql92(SQLHDBC connection, const char16_t *name, int32_t size, std::u16string &out,
                         BareNameRules &rules) {
    out.clear();
    if (size < 1 || Ostrel_IsBlankString(name)) return;
    const std::u16string quote = identifierQuote(connection).quoteString();
    if (quote.empty())
        out = boundedPrefix(name, static_cast<size_t>(size));
    else
        writePreparedName(name, quote, size, out, rules);
}

void prepareNameForSql92(SQLHDBC connection, const char16_t *name, int32_t size, std::u16string &out) {
    BareNameRules rules(connection);
    prepareNameForSql92(connection, name, size, out, rules);
}

std::u16string prepareNameForSql92(SQLHDBC connection, const char16_t *name, int32_t size) {
    std::u16string prepared;
    prepareNameForSql92(connection, name, size, prepared);
    return prepared;
}

std::u16string prepareNameList(SQLHDBC connection, std::u16string_view list, int32_t size, char16_t inputSeparator,
                               char16_t outputSeparator) {
    std::u16string prepared;
    if (size < 1) return prepared;
    const std::u16string copy(list);
    std::u16string name;
    int32_t remaining = size;
    int32_t tokenPosition = 0;
    bool first = true;
    char16_t item[kItemCapacity];
    BareNameRules rules(connection);
    while (Ostrel_ReadToken(copy.c_str(), &tokenPosition, inputSeparator, item, kItemCapacity) == 1) {
        // The quote string is asked again for every item.
        prepareNameForSql92(connection, item, kItemCapacity, name, rules);
        const auto room = static_cast<size_t>(size - 1);
        // The separator is written when 3 characters remain and not counted; an item
        // only when it fits. Nothing goes past the list's capacity.
        if (!first && remaining >= 3 && prepared.size() < room) prepared += outputSeparator;
        first = false;
        auto length = static_cast<int32_t>(name.size());
        if (remaining > length) {
            prepared.append(name, 0, room - prepared.size());
            remaining -= length;
        }
    }
    return prepared;
}

} // namespace tabra::sqltext

extern "C" void Tabra_PrepareNameForSql92(SQLHDBC connection, const char16_t *name, char16_t *destination,
                                          int32_t size, int32_t) {
    if (destination == nullptr || size < 1) return;
    OstrelCopyString(destination, prepareNameForSql92(connection, name, size).c_str(), size);
}

extern "C" void Tabra_PrepareNameListForSql92(SQLHDBC connection, char16_t *list, int32_t size,
                                              char16_t inputSeparator, char16_t outputSeparator) {
    if (list == nullptr || size < 1) return;
    const std::u16string prepared =
        prepareNameList(connection, std::u16string_view(list, std::find(list, list + size, u'\0') - list), size,
                        inputSeparator, outputSeparator);
    OstrelCopyString(list, prepared.c_str(), size);
}

extern "C" void Tabra_QuoteNameIfNotPureSql(SQLHDBC connection, char16_t *name, int32_t size) {
    if (name == nullptr || size < 1) return;
    std::u16string current(name, std::find(name, name + size, u'\0'));
    const IdentifierQuote quote = identifierQuote(connection);
    // A plain identifier stays bare where the database reads it back unchanged (the
    // rules are asked only of a driver that quotes).
    if (isPlainIdentifier(current) && (quote.quoteString().empty() || BareNameRules(connection).staysBare(current)))
        return;
    // No stripping and no test for a driver that does not quote: a space quote string
    // wraps the name in spaces, and a quoted name is quoted again.
    std::u16string wrapped = wrapBounded(current, quote.text, static_cast<size_t>(size));
    OstrelCopyString(name, wrapped.c_str(), size);
}
