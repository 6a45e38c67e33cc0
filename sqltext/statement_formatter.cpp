// The statement formatter. Every statement built from user-chosen names goes
// through here: %t and %f prepare a name for the connection, %s copies text as it
// stands, %. writes a schema separator only after a non-blank argument.
#include "sqltext/statement_formatter.h"

#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "sqltext/sql92_names.h"
#include "tabra_sqltext.h"

#include <algorithm>

namespace {

constexpr int32_t kWorkCapacity = 300;
constexpr size_t kUsableArguments = 7;

// Where a statement goes: the caller's buffer (the exported function writes straight
// into it) or a text.
struct BufferOut {
    char16_t *at;
    void push_back(char16_t c) { *at++ = c; }
    void append(std::u16string_view text) { at = std::copy(text.begin(), text.end(), at); }
};

struct TextOut {
    std::u16string &text;
    void push_back(char16_t c) { text.push_back(c); }
    void append(std::u16string_view piece) { text.append(piece); }
};

// The statement into out, at most size - 2 characters (a piece that does not fit ends
// it), so that a terminator always fits behind.
template <typename Out>
void formatInto(SQLHDBC connection, const char16_t *format, std::initializer_list<const char16_t *> given,
                int32_t size, Out &out) {
    // Arguments beyond those given count as null.
    auto argument = [&given](size_t index) { return index < given.size() ? given.begin()[index] : nullptr; };
    int32_t remaining = size;
    size_t taken = 0;
    std::u16string work;
    tabra::sqltext::BareNameRules rules(connection);

    const char16_t *f = format ? format : u"";
    while (*f != u'\0' && remaining > 2) {
        if (*f != u'%') {
            out.push_back(*f++);
            --remaining;
            continue;
        }
        ++f; // past "%"
        if (*f == u'\0') break;
        if (taken == kUsableArguments) continue; // the next character is taken as a literal

        char16_t placeholder = *f++;
        work.clear();
        switch (placeholder) {
        case u't':
        case u'f':
            tabra::sqltext::prepareNameForSql92(connection, argument(taken++), kWorkCapacity, work, rules);
            break;
        case u's':
            work.assign(tabra::platform::boundedPrefix(tabra::platform::viewOf(argument(taken++)), kWorkCapacity));
            break;
        case u'.':
            if (taken > 0 && !Ostrel_IsBlankString(argument(taken - 1))) work = u".";
            break;
        default:
            continue; // "%" and the character both vanish
        }
        auto length = static_cast<int32_t>(work.size());
        if (length + 2 > remaining) break; // cut silently here
        out.append(work);
        remaining -= length;
    }
}

} // namespace

namespace tabra::sqltext {

std::u16string formatStatement(SQLHDBC connection, const char16_t *format,
                               std::initializer_list<const char16_t *> arguments, int32_t size) {
    std::u16string text;
    TextOut out{text};
    if (size >= 1) formatInto(connection, format, arguments, size, out);
    return text;
}

} // namespace tabra::sqltext

extern "C" void Tabra_SprintfSqlStatement(SQLHDBC connection, char16_t *destination, int32_t size,
                                          const char16_t *format, const char16_t *a1, const char16_t *a2,
                                          const char16_t *a3, const char16_t *a4, const char16_t *a5,
                                          const char16_t *a6, const char16_t *a7, const char16_t *) {
    if (destination == nullptr || size < 1) return;
    BufferOut out{destination};
    formatInto(connection, format, {a1, a2, a3, a4, a5, a6, a7}, size, out);
    *out.at = u'\0'; // always room for it: the statement leaves it
}
