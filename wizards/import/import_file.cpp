// Reading import files line by line, and value files whole.
#include "wizards/import/import_file.h"

#include "platform/text/bounded_text.h"
#include "platform/text/utf_conversion.h"

#include <algorithm>
#include <cstring>

#include <sys/types.h>

namespace tabra::wizards::importing {
namespace {

constexpr std::size_t kBufferBytes = 1 << 16;
constexpr std::size_t kSniffBytes = 4096;

std::string bytesOf(const std::u16string &name) { return platform::toUtf8(name); }

std::size_t unitBytes(FileEncoding encoding) { return encoding == FileEncoding::Utf8 ? 1 : 2; }

// The encoding of a file from its first bytes, and the length of its byte-order mark.
FileEncoding sniff(const char *bytes, std::size_t size, std::size_t &markLength) {
    auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    markLength = 0;
    if (size >= 3 && at(0) == 0xEF && at(1) == 0xBB && at(2) == 0xBF) {
        markLength = 3;
        return FileEncoding::Utf8;
    }
    if (size >= 2 && at(0) == 0xFF && at(1) == 0xFE) {
        markLength = 2;
        return FileEncoding::Utf16LittleEndian;
    }
    if (size >= 2 && at(0) == 0xFE && at(1) == 0xFF) {
        markLength = 2;
        return FileEncoding::Utf16BigEndian;
    }
    const char *zero = static_cast<const char *>(std::memchr(bytes, 0, std::min(size, kSniffBytes)));
    if (zero == nullptr) return FileEncoding::Utf8;
    return (zero - bytes) % 2 == 1 ? FileEncoding::Utf16LittleEndian : FileEncoding::Utf16BigEndian;
}

std::u16string decodeBytes(std::string_view raw, FileEncoding encoding) {
    if (encoding == FileEncoding::Utf8) {
        if (platform::isValidUtf8(raw)) return platform::fromUtf8(raw);
        return std::u16string(raw.begin(), raw.end()); // Latin-1: each byte its character
    }
    std::u16string text(raw.size() / 2, u'\0');
    const bool little = encoding == FileEncoding::Utf16LittleEndian;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto first = static_cast<unsigned char>(raw[2 * i]), second = static_cast<unsigned char>(raw[2 * i + 1]);
        text[i] = static_cast<char16_t>(little ? first | second << 8 : first << 8 | second);
    }
    return text;
}

// Whether the unit at raw[i] is the character c.
bool unitIs(const char *raw, FileEncoding encoding, char c) {
    switch (encoding) {
    case FileEncoding::Utf8: return raw[0] == c;
    case FileEncoding::Utf16LittleEndian: return raw[0] == c && raw[1] == 0;
    case FileEncoding::Utf16BigEndian: return raw[0] == 0 && raw[1] == c;
    }
    return false;
}

std::unique_ptr<std::FILE, void (*)(std::FILE *)> openForReading(const std::u16string &name) {
    return {name.empty() ? nullptr : std::fopen(bytesOf(name).c_str(), "rb"), [](std::FILE *file) {
                if (file != nullptr) std::fclose(file);
            }};
}

} // namespace

bool ImportFile::open(const std::u16string &name) {
    file_.reset(name.empty() ? nullptr : std::fopen(bytesOf(name).c_str(), "rb"));
    if (!file_) return false;
    buffer_.assign(kBufferBytes, '\0');
    begin_ = end_ = 0;
    bufferStart_ = 0;
    atEnd_ = false;
    fill();
    std::size_t mark = 0;
    encoding_ = sniff(buffer_.data(), end_, mark);
    begin_ = mark;
    return true;
}

bool ImportFile::fill() {
    if (atEnd_) return false;
    if (begin_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        bufferStart_ += static_cast<int64_t>(begin_);
        end_ -= begin_;
        begin_ = 0;
    }
    if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
    std::size_t read = std::fread(buffer_.data() + end_, 1, buffer_.size() - end_, file_.get());
    end_ += read;
    if (read == 0) atEnd_ = true;
    return read > 0;
}

bool ImportFile::nextRawLine(std::string &raw) {
    raw.clear();
    if (!file_) return false;
    const std::size_t unit = unitBytes(encoding_);
    std::size_t scanned = begin_;
    for (;;) {
        for (; scanned + unit <= end_; scanned += unit) {
            if (!unitIs(buffer_.data() + scanned, encoding_, '\n')) continue;
            raw.assign(buffer_.data() + begin_, scanned - begin_);
            begin_ = scanned + unit;
            if (raw.size() >= unit && unitIs(raw.data() + raw.size() - unit, encoding_, '\r')) raw.resize(raw.size() - unit);
            return true;
        }
        std::size_t offset = scanned - begin_;
        if (!fill()) break;
        scanned = begin_ + offset;
    }
    if (begin_ >= end_) return false;
    // The last line, without a line end (a lone byte of a UTF-16 file is dropped).
    raw.assign(buffer_.data() + begin_, (end_ - begin_) / unit * unit);
    begin_ = end_;
    if (raw.size() >= unit && unitIs(raw.data() + raw.size() - unit, encoding_, '\r')) raw.resize(raw.size() - unit);
    return true;
}

bool ImportFile::readLine(std::u16string &line, std::size_t capacity) {
    if (!nextRawLine(raw_)) {
        line.clear();
        return false;
    }
    line = decodeBytes(raw_, encoding_);
    if (line.size() >= capacity) line.resize(platform::cutLength(line, capacity > 0 ? capacity - 1 : 0));
    return true;
}

bool ImportFile::seek(int64_t position) {
    if (!file_ || fseeko(file_.get(), static_cast<off_t>(position), SEEK_SET) != 0) return false;
    begin_ = end_ = 0;
    bufferStart_ = position;
    atEnd_ = false;
    return true;
}

int32_t ImportFile::countNonEmptyLines() {
    const int64_t start = position();
    int32_t count = 0;
    while (nextRawLine(raw_))
        if (!raw_.empty()) ++count;
    seek(start);
    return count;
}

std::optional<std::u16string> readWholeFile(const std::u16string &name) {
    auto file = openForReading(name);
    if (!file) return std::nullopt;
    std::string bytes;
    char chunk[kBufferBytes];
    for (std::size_t read; (read = std::fread(chunk, 1, sizeof chunk, file.get())) > 0;) bytes.append(chunk, read);
    std::size_t mark = 0;
    FileEncoding encoding = sniff(bytes.data(), bytes.size(), mark);
    std::u16string text = decodeBytes(std::string_view(bytes).substr(mark), encoding);
    while (!text.empty() && text.back() < 32) text.pop_back();
    return text;
}

std::u16string folderOf(const std::u16string &fileName) {
    auto slash = fileName.find_last_of(u'/');
    return slash == std::u16string::npos ? std::u16string() : fileName.substr(0, slash + 1);
}

std::u16string inFolder(const std::u16string &folder, const std::u16string &name) {
    return name.find(u'/') == std::u16string::npos ? folder + name : name;
}

} // namespace tabra::wizards::importing
