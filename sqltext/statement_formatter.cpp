// The statement formatter. Every statement built from user-chosen names goes
// through here: %t and %f prepare a name for the connection, %s copies text as it
// stands, %. writes a schema separator only after a non-blank argument.
#include "ostrel.h"
#include "tabra_sqltext.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr int32_t kWorkCapacity = 300;
constexpr int kUsableArguments = 7;

} // namespace

extern "C" void Tabra_SprintfSqlStatement(SQLHDBC connection, char16_t *destination, int32_t size,
                                          const char16_t *format, const char16_t *a1, const char16_t *a2,
                                          const char16_t *a3, const char16_t *a4, const char16_t *a5,
                                          const char16_t *a6, const char16_t *a7, const char16_t *) {
    if (destination == nullptr || size < 1) return;
    const std::array<const char16_t *, kUsableArguments> arguments{a1, a2, a3, a4, a5, a6, a7};
    int32_t remaining = size;
    char16_t *out = destination;
    int taken = 0;
    char16_t work[kWorkCapacity];

    const char16_t *f = format ? format : u"";
    while (*f != u'\0' && remaining > 2) {
        if (*f != u'%') {
            *out++ = *f++;
            --remaining;
            continue;
        }
        ++f; // past "%"
        if (*f == u'\0') break;
        if (taken == kUsableArguments) continue; // the next character is taken as a literal

        char16_t placeholder = *f++;
        work[0] = u'\0';
        switch (placeholder) {
        case u't':
        case u'f':
            Tabra_PrepareNameForSql92(connection, arguments[taken++], work, kWorkCapacity, 0);
            break;
        case u's':
            OstrelCopyString(work, arguments[taken++], kWorkCapacity);
            break;
        case u'.':
            if (taken > 0 && !Ostrel_IsBlankString(arguments[taken - 1])) OstrelCopyString(work, u".", kWorkCapacity);
            break;
        default:
            continue; // "%" and the character both vanish
        }
        auto length = static_cast<int32_t>(std::char_traits<char16_t>::length(work));
        if (length + 2 > remaining) break; // cut silently here
        out = std::copy_n(work, length, out);
        remaining -= length;
    }
    if (remaining >= 1) *out = u'\0';
}
