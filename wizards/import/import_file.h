// Reading an import file (text, SDI or selection file, or a value file): opened for
// reading only, never changed, read line by line with its line ends removed.
//
// Encoding: the library's own files are UTF-16 little-endian (the export writes them
// so, without a byte-order mark); files made by other programs are mostly UTF-8. A
// byte-order mark decides (UTF-8, UTF-16 LE or BE); without one a file that holds a
// zero byte within its first 4096 bytes is UTF-16 (little-endian unless the first
// zero byte stands at an even offset), any other file is UTF-8, and a line that is not
// well-formed UTF-8 is read as Latin-1 (one character per byte), so that no byte of an
// older 8-bit file is lost.
//
// Lines end at a line feed; a carriage return before it is removed too. A line longer
// than the caller's capacity is cut to capacity - 1 characters and the rest of it
// skipped.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabra::wizards::importing {

enum class FileEncoding { Utf8, Utf16LittleEndian, Utf16BigEndian };

class ImportFile {
public:
    // Opens the file for reading ("rb"); false when it cannot be opened.
    bool open(const std::u16string &name);
    bool isOpen() const { return file_ != nullptr; }
    FileEncoding encoding() const { return encoding_; }

    // The next line into line; false at the end of the file.
    bool readLine(std::u16string &line, std::size_t capacity);
    // Where the next line starts, and going back there.
    int64_t position() const { return bufferStart_ + static_cast<int64_t>(begin_); }
    bool seek(int64_t position);
    // The lines from here to the end that are not empty; the position is kept.
    int32_t countNonEmptyLines();

private:
    struct Closer {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };
    // The raw bytes of the next line without its line end; false at the end.
    bool nextRawLine(std::string &raw);
    bool fill();
    std::u16string decode(const std::string &raw) const;

    std::unique_ptr<std::FILE, Closer> file_;
    FileEncoding encoding_ = FileEncoding::Utf8;
    std::vector<char> buffer_;
    std::size_t begin_ = 0, end_ = 0;
    int64_t bufferStart_ = 0;
    bool atEnd_ = false;
    std::string raw_;
};

// The whole content of a value file as text, every trailing character below 32 (line
// ends and other control characters) removed; nullopt when it cannot be opened.
std::optional<std::u16string> readWholeFile(const std::u16string &name);

// The folder of a file name with its closing "/" ("" for a bare name); a bare name is
// completed with a folder.
std::u16string folderOf(const std::u16string &fileName);
std::u16string inFolder(const std::u16string &folder, const std::u16string &name);

} // namespace tabra::wizards::importing
