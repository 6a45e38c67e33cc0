// Writing a text answer into a caller's byte buffer the ODBC way: cut to the buffer,
// always terminated, the full length reported.
#pragma once

#include <sql.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace tabra::testdriver {

// Returns true when the whole text fit.
template <typename Length>
bool writeText(const std::string &text, SQLPOINTER buffer, SQLLEN bufferLength, Length *length) {
    if (length) *length = static_cast<Length>(text.size());
    if (!buffer) return true; // the caller asked for the length only
    if (bufferLength <= 0) return text.empty();
    size_t room = static_cast<size_t>(bufferLength) - 1;
    size_t copied = std::min(room, text.size());
    std::memcpy(buffer, text.data(), copied);
    static_cast<char *>(buffer)[copied] = '\0';
    return copied == text.size();
}

} // namespace tabra::testdriver
