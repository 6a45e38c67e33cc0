// Reading and writing statement files.
#include "query/view_editor/statement_file.h"

#include "platform/resources/resource_script_file.h"
#include "platform/text/utf_conversion.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <memory>

namespace tabra::query::view_editor {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

struct FileCloser {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// UTF-16 code units of the bytes after the mark; an odd last byte is dropped.
std::u16string utf16Of(std::string_view bytes, bool bigEndian) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]), second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<char16_t>(bigEndian ? (first << 8) | second : (second << 8) | first);
    }
    return text;
}

} // namespace

std::u16string decodeStatementBytes(std::string_view bytes) {
    if (bytes.starts_with(kUtf16LittleMark)) return utf16Of(bytes.substr(kUtf16LittleMark.size()), false);
    if (bytes.starts_with(kUtf16BigMark)) return utf16Of(bytes.substr(kUtf16BigMark.size()), true);
    if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
    return platform::fromUtf8(bytes);
}

std::optional<std::u16string> readStatementFile(const std::u16string &fileName) {
    std::optional<std::string> bytes = platform::readWholeFile(platform::toUtf8(fileName));
    if (!bytes) return std::nullopt;
    return decodeStatementBytes(*bytes);
}

int writeStatementFile(const std::u16string &fileName, std::u16string_view text) {
    const std::string path = platform::toUtf8(fileName);
    const std::string bytes = platform::toUtf8(text);
    File file(std::fopen(path.c_str(), "wb"));
    if (!file) return errno;
    int failure = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) failure = errno != 0 ? errno : EIO;
    if (std::fclose(file.release()) != 0 && failure == 0) failure = errno != 0 ? errno : EIO;
    if (failure == 0) return 0;
    // A short write leaves no half statement behind; anything but a regular file stays.
    struct stat status {};
    if (stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode)) std::remove(path.c_str());
    return failure;
}

} // namespace tabra::query::view_editor
