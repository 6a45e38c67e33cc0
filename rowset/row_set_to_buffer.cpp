// A statement's rows as the text of a row-set file, delivered into a caller's buffer:
// the file is written to a temporary file and read back. The buffer receives at most
// capacity - 1 whole characters (a surrogate pair is never split), terminated; the
// rest of the buffer is zeroed.
#include "core/diagnostics/file_error_report.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"
#include "platform/text/utf_conversion.h"
#include "tabra_rowset.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>

namespace {

constexpr int32_t kTemporaryNameCapacity = 256;

struct FileCloser {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

// Reads up to characters UTF-16LE characters of the file into output; the number read,
// or -1 with errno set.
long readCharacters(const std::string &path, char16_t *output, std::size_t characters) {
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (!file) return -1;
    unsigned char bytes[8192];
    std::size_t count = 0;
    while (count < characters) {
        std::size_t wanted = std::min(sizeof bytes, (characters - count) * 2);
        std::size_t got = std::fread(bytes, 1, wanted, file.get());
        for (std::size_t i = 0; i + 1 < got; i += 2)
            output[count++] = static_cast<char16_t>(bytes[i] | (bytes[i + 1] << 8));
        if (got < wanted) {
            if (std::ferror(file.get())) return -1;
            break;
        }
    }
    return static_cast<long>(count);
}

} // namespace

extern "C" int32_t OdbcEh_SelectRowSetToBuffer(int32_t context, SQLHDBC connection, const char16_t *text,
                                               const char16_t *fieldSeparator, const char16_t *recordSeparator,
                                               char16_t *output, int32_t capacity, const char16_t *tolerated,
                                               uint32_t flags) {
    if (output == nullptr || capacity < 3) return 2;
    std::fill(output, output + capacity, u'\0');
    char16_t name[kTemporaryNameCapacity] = {};
    if (CreateTemporaryFileName(name, kTemporaryNameCapacity, u"XB") != 1) {
        tabra::diagnostics::reportFileError(errno, u"XB");
        return 2;
    }
    std::string path = tabra::platform::toUtf8(name);
    if (OdbcEh_SelectRowSetToFile(context, connection, text, fieldSeparator, recordSeparator, name, nullptr,
                                  tolerated, flags) != 1) {
        ::unlink(path.c_str());
        return 2;
    }
    // One character more than is kept is read, so that a cut never splits a pair.
    long read = readCharacters(path, output, static_cast<std::size_t>(capacity));
    int error = errno;
    ::unlink(path.c_str());
    if (read < 0) {
        std::fill(output, output + capacity, u'\0');
        tabra::diagnostics::reportFileError(error, name);
        return 2;
    }
    std::size_t length = tabra::platform::cutLength(std::u16string_view(output, static_cast<std::size_t>(read)),
                                                    static_cast<std::size_t>(capacity - 1));
    std::fill(output + length, output + capacity, u'\0');
    return 1;
}
