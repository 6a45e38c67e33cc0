// Selection mask files: a selection saved by the user, "OSTREL-SMS" followed by the
// descriptor, as UTF-16LE text without byte order mark or terminator.
#pragma once

#include "query/resource_ids.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabra::query {

inline constexpr std::u16string_view kMaskPrefix = u"OSTREL-SMS";

// The text of the file: its n bytes read as UTF-16LE into n + 1 zeroed characters,
// character n - 1 cleared when it is 26 (Ctrl-Z), the text ending at the first zero.
// Nothing when the file cannot be opened or read (the caller tells the user); a
// buffer that cannot be had shows the out-of-memory message and gives nothing.
std::optional<std::u16string> readMaskFile(const std::u16string &fileName);

// Writes text whole, two bytes per character. Returns 0, or -1 after showing the
// file error for a file that cannot be created or the mask-not-written message for a
// short write (the partial file is removed).
int32_t writeMaskFile(const std::u16string &fileName, std::u16string_view text);

} // namespace tabra::query
