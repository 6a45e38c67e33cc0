// Files replaced whole: a new file beside the target, renamed over it on commit.
#include "platform/files/replacing_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <random>

namespace tabra::platform {

namespace {

std::string folderOf(const std::string &path) {
    auto slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

// A fresh name for the new file in folder: hidden, and short enough for any target.
std::string newFileName(const std::string &folder) {
    static constexpr char kLetters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    thread_local std::mt19937_64 random{std::random_device{}()};
    std::string name = folder + "/.tabra-";
    for (int i = 0; i < 12; ++i) name.push_back(kLetters[random() % (sizeof kLetters - 1)]);
    return name + ".part";
}

// Writes all of size bytes; 0 or the errno.
int writeAll(int descriptor, const char *data, std::size_t size) {
    while (size > 0) {
        ssize_t written = ::write(descriptor, data, size);
        if (written < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return 0;
}

} // namespace

int ReplacingFile::open(const std::string &target) {
    discard();
    target_ = target;
    struct stat existing {};
    if (::lstat(target_.c_str(), &existing) == 0 && S_ISLNK(existing.st_mode)) {
        // Write where the link points, as opening the link would.
        if (char *resolved = ::realpath(target_.c_str(), nullptr)) {
            target_ = resolved;
            std::free(resolved);
        }
    }
    bool exists = ::stat(target_.c_str(), &existing) == 0;
    if (exists && S_ISDIR(existing.st_mode)) return EISDIR;
    if (exists && !S_ISREG(existing.st_mode)) {
        // A device or pipe cannot be replaced: it is written as it is.
        descriptor_ = ::open(target_.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC | O_NOCTTY);
        return descriptor_ < 0 ? errno : 0;
    }
    if (exists) {
        // The file it replaces must be one we could have written.
        int probe = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
        if (probe < 0) return errno;
        ::close(probe);
    }
    std::string folder = folderOf(target_);
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name = newFileName(folder);
        descriptor_ = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, 0666);
        if (descriptor_ >= 0) {
            temporary_ = std::move(name);
            // The replacement keeps the permissions of the file it replaces.
            if (exists) ::fchmod(descriptor_, existing.st_mode & 07777);
            return 0;
        }
        if (errno != EEXIST) return errno;
    }
    return EEXIST;
}

int ReplacingFile::write(std::u16string_view text) {
    buffer_.append(text);
    return flushIfFull();
}

int ReplacingFile::flush() {
    if (buffer_.empty()) return 0;
    int result;
    if constexpr (std::endian::native == std::endian::little) {
        result = writeAll(descriptor_, reinterpret_cast<const char *>(buffer_.data()), buffer_.size() * 2);
    } else {
        bytes_.clear();
        for (char16_t c : buffer_) {
            bytes_.push_back(static_cast<char>(c & 0xFF));
            bytes_.push_back(static_cast<char>(c >> 8));
        }
        result = writeAll(descriptor_, bytes_.data(), bytes_.size());
    }
    buffer_.clear();
    return result;
}

int ReplacingFile::commit() {
    if (descriptor_ < 0) return EBADF;
    int result = flush();
    if (result == 0 && !temporary_.empty() && ::fdatasync(descriptor_) != 0) result = errno;
    if (::close(descriptor_) != 0 && result == 0) result = errno;
    descriptor_ = -1;
    if (result == 0 && !temporary_.empty() && ::rename(temporary_.c_str(), target_.c_str()) != 0) result = errno;
    if (result == 0) temporary_.clear();
    discard();
    return result;
}

void ReplacingFile::discard() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
    temporary_.clear();
    buffer_.clear();
}

} // namespace tabra::platform
