// The one-line text encoding: a reversible backslash escape that keeps any text on
// one line and free of control characters, so that it can live in a list entry, a
// registry value, one line of a file or (with its quotes doubled) an SQL literal.
//
// Escapes (the decoder reads them all, whatever mode wrote them):
//   \\  backslash            \t \n \r  tab, line feed, carriage return
//   \q  quotation mark "     \Q  apostrophe '      (written in the quote-safe form only)
//   \xHH  any other character 1-31, 127 and 128-159 (two upper-case hex digits)
//   \uHHHH  U+2028, U+2029 and surrogates without their partner (four hex digits);
//          in the general form (mode 0) both halves of every pair too, so that the
//          text holds no character outside the Basic Multilingual Plane
// Every other character stays as it is. The encoding of a text is a function of the
// text alone, so equal texts give equal encodings.
#pragma once

#include <string>
#include <string_view>

namespace tabra::platform {

enum class LineEncoding {
    General,  // mode 0: control characters and the backslash are escaped
    QuoteSafe // mode 2 (row-set files): the two quote characters are escaped too
};

std::u16string encodeOnOneLine(std::u16string_view text, LineEncoding form);

// The inverse of encodeOnOneLine. Text that no encoder wrote is read leniently: a
// backslash that starts no complete escape stands for itself.
std::u16string decodeFromOneLine(std::u16string_view encoded);

} // namespace tabra::platform
