// The exported backslash escape pair, in place over the caller's buffer.
//
// Encoding escapes the characters 1 to 31 and the two quote characters and the
// backslash (see the table in tabra_systable.h); every other character, those above
// 255 included, is copied. It holds at least ten positions of the buffer back: before
// each character it stops when fewer than 11 remain, and a character then costs 1, an
// escape \t 2, an escape \xHH 4 of what remains. So it never writes past the buffer,
// and capacity 11 holds exactly one character of a long text. A surrogate pair is
// written whole or not at all.
//
// Decoding reads what the encoder writes; text it did not write is read by the same
// rules, which give: a lone backslash at the end is dropped, "\x" with fewer than two
// characters after it is a backslash, hexadecimal digits other than 0-9 and A-F count
// as their code minus that of '0', and a backslash before any other character is one
// backslash, the character being consumed.
#include "platform/text/bounded_text.h"
#include "tabra_systable.h"

#include <new>
#include <string>

using tabra::platform::isHighSurrogate;
using tabra::platform::isLowSurrogate;

namespace {

constexpr int32_t kHeldBack = 11;
constexpr char16_t kHexDigits[] = u"0123456789ABCDEF";

// The two-character escapes besides the backslash's own: character and letter.
struct LetterEscape {
    char16_t character, letter;
};
constexpr LetterEscape kLetterEscapes[] = {{u'\t', u't'}, {u'\n', u'n'}, {u'\r', u'r'}, {u'"', u'q'}, {u'\'', u'Q'}};

// The letter of a two-character escape, or 0 when the character has none.
char16_t escapeLetter(char16_t c) {
    if (c == u'\\') return u'\\';
    for (const auto &escape : kLetterEscapes)
        if (escape.character == c) return escape.letter;
    return 0;
}

// The character a two-character escape stands for, or 0 when the letter starts none
// (a backslash after a backslash is one of the "other" letters: one backslash).
char16_t escapedCharacter(char16_t letter) {
    for (const auto &escape : kLetterEscapes)
        if (escape.letter == letter) return escape.character;
    return 0;
}

int hexDigitValue(char16_t digit) {
    if (digit >= u'A' && digit <= u'F') return digit - u'A' + 10;
    return static_cast<int>(digit) - u'0';
}

} // namespace

extern "C" void Tabra_EncodeString(char16_t *text, int32_t capacity) {
    if (text == nullptr || capacity < 1) return;
    std::u16string input;
    try {
        input = text;
    } catch (const std::bad_alloc &) {
        return;
    }
    int32_t remaining = capacity;
    int32_t out = 0;
    for (size_t i = 0; i < input.size() && remaining >= kHeldBack; ++i) {
        const char16_t c = input[i];
        if (const char16_t letter = escapeLetter(c)) {
            text[out++] = u'\\';
            text[out++] = letter;
            remaining -= 2;
        } else if (c >= 1 && c <= 31) {
            text[out++] = u'\\';
            text[out++] = u'x';
            text[out++] = kHexDigits[c >> 4];
            text[out++] = kHexDigits[c & 0xF];
            remaining -= 4;
        } else if (isHighSurrogate(c) && i + 1 < input.size() && isLowSurrogate(input[i + 1])) {
            // A pair is written whole or not at all: its second half must find room too.
            if (remaining < kHeldBack + 1) break;
            text[out++] = c;
            text[out++] = input[++i];
            remaining -= 2;
        } else {
            text[out++] = c;
            remaining -= 1;
        }
    }
    text[out] = u'\0';
}

extern "C" void Tabra_DecodeString(char16_t *text) {
    if (text == nullptr) return;
    // Every escape is at least as long as what it stands for, so the output never
    // overtakes the input.
    size_t in = 0;
    size_t out = 0;
    while (text[in] != u'\0') {
        const char16_t c = text[in++];
        if (c != u'\\') {
            text[out++] = c;
            continue;
        }
        const char16_t letter = text[in];
        if (letter == u'\0') break; // a lone backslash at the end is dropped
        ++in;
        if (const char16_t decoded = escapedCharacter(letter)) {
            text[out++] = decoded;
        } else if (letter == u'x' && text[in] != u'\0' && text[in + 1] != u'\0') {
            text[out++] = static_cast<char16_t>(hexDigitValue(text[in]) * 16 + hexDigitValue(text[in + 1]));
            in += 2;
        } else {
            text[out++] = u'\\';
        }
    }
    text[out] = u'\0';
}
