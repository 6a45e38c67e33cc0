// Reading and writing selection mask files.
#include "query/mask_file.h"

#include "core/diagnostics/file_error_report.h"
#include "core/resource_ids.h"
#include "query/resource_ids.h"
#include "platform/text/utf_conversion.h"
#include "tabra_connection.h"

#include <sys/stat.h>

#include <bit>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace tabra::query {

namespace {

constexpr char16_t kEndMark = 26; // Ctrl-Z

struct FileCloser {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// The size in bytes of an open regular file; nothing for anything else.
std::optional<size_t> regularFileSize(std::FILE *file) {
    struct stat status {};
    if (fstat(fileno(file), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size < 0) return std::nullopt;
    return static_cast<size_t>(status.st_size);
}

// Removes what a failed write left; a device or anything else that is not a regular
// file stays.
void removeRegularFile(const std::string &path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode)) std::remove(path.c_str());
}

} // namespace

std::optional<std::u16string> readMaskFile(const std::u16string &fileName) {
    File file(std::fopen(platform::toUtf8(fileName).c_str(), "rb"));
    if (!file) return std::nullopt;
    std::optional<size_t> size = regularFileSize(file.get());
    if (!size) return std::nullopt;
    const size_t n = *size;
    std::vector<char16_t> text;
    try {
        text.assign(n + 1, u'\0');
    } catch (const std::bad_alloc &) {
        ShowMessage(core::ids::kMessage.outOfMemory, fileName.c_str(), nullptr, nullptr);
        return std::nullopt;
    }
    // The bytes go to the start of the buffer; they fill its first half.
    if (std::fread(text.data(), 1, n, file.get()) != n) return std::nullopt;
    if constexpr (std::endian::native == std::endian::big)
        for (char16_t &c : text) c = static_cast<char16_t>((c << 8) | (c >> 8));
    if (n >= 1 && text[n - 1] == kEndMark) text[n - 1] = u'\0';
    text[n] = u'\0';
    return std::u16string(text.data());
}

int32_t writeMaskFile(const std::u16string &fileName, std::u16string_view text) {
    std::string path = platform::toUtf8(fileName);
    File file(std::fopen(path.c_str(), "wb"));
    if (!file) {
        diagnostics::reportFileError(errno, fileName.c_str());
        return -1;
    }
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (char16_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    bool whole = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    whole = std::fclose(file.release()) == 0 && whole;
    if (!whole) {
        removeRegularFile(path);
        ShowMessage(ids::kMessage.maskNotWritten, fileName.c_str(), nullptr, nullptr);
        return -1;
    }
    return 0;
}

} // namespace tabra::query
