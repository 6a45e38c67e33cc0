// The older family of name preparation: square brackets, no connection needed.
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/identifier_rules.h"
#include "tabra_sqltext.h"

#include <algorithm>
#include <string>

using namespace tabra::sqltext;
using tabra::platform::boundedPrefix;
using tabra::platform::writeBounded;

namespace {

constexpr size_t kPartCapacity = 100; // 99 characters and a terminator
constexpr int32_t kItemCapacity = 100;

// Brackets a part unless it is "*", empty or all spaces, or plain while plain names
// may stay bare.
std::u16string prepareBracketPart(std::u16string part, bool keepPlainBare) {
    if (part == u"*" || isAllSpaces(part) || (keepPlainBare && isPlainIdentifier(part))) return part;
    std::u16string wrapped = u"[" + part + u"]";
    if (wrapped.size() > kPartCapacity - 1) wrapped.resize(kPartCapacity - 1);
    return wrapped;
}

// The name prepared in a buffer of size characters (bounded copies, as the exported
// function writes it); a name made only of spaces stays as it is.
std::u16string prepareBracketName(std::u16string_view text, int32_t size, int32_t flags) {
    if (isAllSpaces(text)) return std::u16string(text);
    // At most two parts: before the first "." and between the first and the second.
    size_t firstDot = text.find(u'.');
    std::u16string first(text.substr(0, firstDot).substr(0, kPartCapacity - 1));
    std::u16string second;
    if (firstDot != std::u16string_view::npos) {
        size_t secondDot = text.find(u'.', firstDot + 1);
        second = text.substr(firstDot + 1, secondDot == std::u16string_view::npos ? secondDot : secondDot - firstDot - 1)
                     .substr(0, kPartCapacity - 1);
    }
    bool keepPlainBare = (flags & 1) != 0;
    first = prepareBracketPart(std::move(first), keepPlainBare);
    second = prepareBracketPart(std::move(second), keepPlainBare);

    auto room = [&](const std::u16string &written) { return static_cast<size_t>(size) - written.size(); };
    std::u16string name(boundedPrefix(first, static_cast<size_t>(size)));
    if (!second.empty()) {
        name += boundedPrefix(u".", room(name));
        name += boundedPrefix(second, room(name));
    }
    return name;
}

} // namespace

extern "C" int32_t Tabra_PrepareNameForSql(char16_t *name, int32_t size, int32_t flags) {
    if (name == nullptr || size < 1) return 0;
    std::u16string text(name, std::find(name, name + size, u'\0'));
    if (isAllSpaces(text)) return 1;
    return writeBounded(name, size, prepareBracketName(text, size, flags));
}

extern "C" void Tabra_PrepareNameListForSql(const char16_t *list, char16_t separator, char16_t *destination,
                                            int32_t size, int32_t flags) {
    if (destination == nullptr || size < 1) return;
    destination[0] = u'\0';
    if (list == nullptr || separator == u'\0') return;
    // The list is split at tabs whatever separator is passed.
    char16_t item[kItemCapacity];
    int32_t position = 0;
    while (Ostrel_ReadToken(list, &position, u'\t', item, kItemCapacity) == 1) {
        if (destination[0] != u'\0') OstrelAppendString(destination, u",", size);
        OstrelAppendString(destination, prepareBracketName(item, kItemCapacity, flags).c_str(), size);
    }
}
