// Texts for GTK labels.
#include "platform/gtk/label_text.h"

#include "platform/text/utf_conversion.h"

namespace tabra::gtk {
namespace {

// Walks the "&" marks of a template text; `mark` receives the character after a
// single "&" (the first one only: later ones are plain letters, as Win32 draws them).
template <class Plain, class Mark> void walkMnemonics(std::u16string_view text, Plain plain, Mark mark) {
    bool marked = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t c = text[i];
        if (c != u'&') {
            plain(c);
            continue;
        }
        if (i + 1 >= text.size()) break; // a trailing "&" marks nothing
        char16_t next = text[++i];
        if (next == u'&' || marked) {
            plain(next);
            continue;
        }
        marked = true;
        mark(next);
    }
}

} // namespace

std::string utf8(std::u16string_view text) { return platform::toUtf8(text); }

std::u16string utf16(const char *text) { return text ? platform::fromUtf8(text) : std::u16string(); }

std::string mnemonicLabel(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size() + 2);
    walkMnemonics(
        text,
        [&](char16_t c) {
            if (c == u'_') out += u'_'; // GTK's mnemonic character itself must be doubled
            out += c;
        },
        [&](char16_t c) {
            out += u'_'; // "_x" marks x; "__" is a plain underscore
            out += c;
        });
    return utf8(out);
}

std::string plainLabel(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size());
    walkMnemonics(text, [&](char16_t c) { out += c; }, [&](char16_t c) { out += c; });
    return utf8(out);
}

} // namespace tabra::gtk
