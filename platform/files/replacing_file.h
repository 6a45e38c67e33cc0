// A file written whole or not at all. The text goes to a new file beside the target
// (same folder, so the final rename stays on one file system) and replaces the target
// only when commit() is called; without a commit the new file is removed again, so a
// failed write never leaves a partial file behind and never harms a file that was
// there. Output is buffered and written in large blocks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tabra::platform {

class ReplacingFile {
public:
    ReplacingFile() = default;
    ReplacingFile(const ReplacingFile &) = delete;
    ReplacingFile &operator=(const ReplacingFile &) = delete;
    ~ReplacingFile() { discard(); }

    // Prepares to write target (a path in UTF-8). An existing target must be a file we
    // may write; a symbolic link is followed. Returns 0, or the errno that stops it
    // (ENOENT for a missing folder, EACCES, EISDIR, ...).
    int open(const std::string &target);

    // Appends UTF-16 text, written as UTF-16LE. Returns 0 or the errno of a failed write.
    int write(std::u16string_view text);
    // The buffer to append to directly; call flushIfFull() after appending.
    std::u16string &buffer() { return buffer_; }
    int flushIfFull() { return buffer_.size() >= kBlockCharacters ? flush() : 0; }

    // Writes what is buffered, makes the file durable in its place and replaces the
    // target with it. Returns 0 or an errno; after a failure nothing is left behind.
    int commit();
    // Removes the new file (nothing happens after a commit).
    void discard();

private:
    static constexpr std::size_t kBlockCharacters = 128 * 1024;

    int flush();

    int descriptor_ = -1;
    std::string target_;
    std::string temporary_;
    std::u16string buffer_;
    std::string bytes_; // the block in little-endian order on big-endian machines
};

} // namespace tabra::platform
