// The round trip that tells whether a text reaches the driver unchanged.
#include "core/connection/text_transport.h"

#include "core/odbc/odbc_text.h"

#include <sqlext.h>

#include <algorithm>
#include <string>

namespace tabra::connection {
namespace {

// The characters of text beyond ASCII, each once (a surrogate pair stays whole), in a
// string literal so that the driver reads them as data.
std::u16string probeOf(std::u16string_view text) {
    std::u16string probe = u"'";
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] < 0x80) continue;
        size_t length = (text[i] >= 0xD800 && text[i] <= 0xDBFF && i + 1 < text.size()) ? 2 : 1;
        std::u16string_view character = text.substr(i, length);
        if (probe.find(character) == std::u16string::npos) probe += character;
        i += length - 1;
    }
    return probe + u"'";
}

} // namespace

bool textSurvives(SQLHDBC connection, std::u16string_view text) {
    if (connection == SQL_NULL_HDBC || std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; }))
        return true;
    const std::u16string probe = probeOf(text);
    // Room for three bytes of UTF-8 per character, for drivers that hand the text back as
    // UTF-8 through the driver manager.
    std::u16string returned(probe.size() * 3 + 16, u'\0');
    // The SQLite driver copies the text with strncpy and then ends the text it was given
    // (the driver manager's copy of the input) at the output's size, however short that
    // copy is. A terminator after the probe ends the copy there (the rest of the output
    // is zeroed), and the blanks after it make the input at least as long as any size the
    // driver may be told, in bytes, so that its write stays inside.
    std::u16string input = probe + u'\0' + std::u16string(returned.size() * 4, u' ');
    SQLINTEGER length = 0;
    SQLRETURN rc = SQLNativeSqlW(connection, odbc::sqlText(input.data()), static_cast<SQLINTEGER>(input.size()),
                                 odbc::sqlText(returned.data()), static_cast<SQLINTEGER>(returned.size()), &length);
    if (!SQL_SUCCEEDED(rc)) return true;
    returned.resize(std::char_traits<char16_t>::length(returned.c_str()));
    return returned == probe;
}

} // namespace tabra::connection
