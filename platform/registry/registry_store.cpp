#include "platform/registry/registry_store.h"

#include "platform/registry/registry_file_format.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tabra::platform {
namespace {

// An owned file descriptor, closed when it goes out of scope.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd = -1) : fd_(fd) {}
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    ~FileDescriptor() { reset(); }

    int get() const { return fd_; }
    bool valid() const { return fd_ >= 0; }
    // Closes now and reports whether the close succeeded (it can report a late write error).
    bool close() {
        const int fd = fd_;
        fd_ = -1;
        return fd < 0 || ::close(fd) == 0;
    }

private:
    void reset() {
        if (fd_ >= 0)
            ::close(fd_);
        fd_ = -1;
    }
    int fd_;
};

bool writeAll(int fd, const std::string &data) {
    std::size_t written = 0;
    while (written < data.size()) {
        const ssize_t n = ::write(fd, data.data() + written, data.size() - written);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        written += static_cast<std::size_t>(n);
    }
    return true;
}

// Creates the directory and its missing parents, each new one with the given mode.
bool ensureDirectory(const std::filesystem::path &directory, mode_t mode) {
    struct stat info {};
    if (::stat(directory.c_str(), &info) == 0)
        return S_ISDIR(info.st_mode);
    const std::filesystem::path parent = directory.parent_path();
    if (!parent.empty() && parent != directory && !ensureDirectory(parent, mode))
        return false;
    return ::mkdir(directory.c_str(), mode) == 0 || errno == EEXIST;
}

bool syncDirectory(const std::filesystem::path &directory) {
    FileDescriptor fd(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return fd.valid() && ::fsync(fd.get()) == 0;
}

bool lockExclusive(int fd) {
    while (::flock(fd, LOCK_EX) != 0) {
        if (errno != EINTR)
            return false;
    }
    return true;
}

// Moves a damaged store aside under a name that tells when it was found damaged.
bool moveDamagedAside(const std::filesystem::path &file) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", &local);
    const std::string base = file.string() + ".damaged-" + stamp;
    for (int attempt = 1; attempt < 1000; ++attempt) {
        const std::string candidate = attempt == 1 ? base : base + "-" + std::to_string(attempt);
        struct stat info {};
        if (::lstat(candidate.c_str(), &info) == 0)
            continue;
        return ::rename(file.c_str(), candidate.c_str()) == 0;
    }
    return false;
}

// Writes the text to a temporary file beside the store and renames it over the store.
bool replaceStore(const RegistryLocation &location, const std::string &text) {
    const std::filesystem::path directory = location.file.parent_path();
    std::string tempName = (directory / ("." + location.file.filename().string() + ".tmp-XXXXXX")).string();
    FileDescriptor temp(::mkostemp(tempName.data(), O_CLOEXEC));
    if (!temp.valid())
        return false;
    const bool written = ::fchmod(temp.get(), location.fileMode) == 0 && writeAll(temp.get(), text) &&
                         ::fsync(temp.get()) == 0 && temp.close();
    if (!written || ::rename(tempName.c_str(), location.file.c_str()) != 0) {
        ::unlink(tempName.c_str());
        return false;
    }
    // The rename is done; a failing directory sync cannot undo it, only weaken it.
    syncDirectory(directory);
    return true;
}

} // namespace

StoreSnapshot loadRegistryStore(const std::filesystem::path &file) {
    StoreSnapshot snapshot;
    FileDescriptor fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!fd.valid()) {
        snapshot.condition = errno == ENOENT || errno == ENOTDIR ? StoreCondition::Missing : StoreCondition::Unreadable;
        return snapshot;
    }
    std::string text;
    char buffer[16384];
    for (;;) {
        const ssize_t n = ::read(fd.get(), buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            snapshot.condition = StoreCondition::Unreadable;
            return snapshot;
        }
        if (n == 0)
            break;
        text.append(buffer, static_cast<std::size_t>(n));
    }
    auto document = parseRegistryText(text);
    if (!document) {
        snapshot.condition = StoreCondition::Damaged;
        return snapshot;
    }
    snapshot.condition = StoreCondition::Intact;
    snapshot.document = std::move(*document);
    return snapshot;
}

StoreUpdate updateRegistryStore(const RegistryLocation &location,
                                const std::function<bool(RegistryDocument &)> &change) {
    if (!ensureDirectory(location.file.parent_path(), location.directoryMode))
        return StoreUpdate::Failed;
    const std::string lockName = location.file.string() + ".lock";
    FileDescriptor lock(::open(lockName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, location.fileMode));
    if (!lock.valid() || !lockExclusive(lock.get()))
        return StoreUpdate::Failed;

    StoreSnapshot current = loadRegistryStore(location.file);
    if (current.condition == StoreCondition::Unreadable)
        return StoreUpdate::Failed;
    if (!change(current.document))
        return StoreUpdate::Unchanged;
    if (current.condition == StoreCondition::Damaged && !moveDamagedAside(location.file))
        return StoreUpdate::Failed;
    // The lock is released when `lock` closes, after the new store is in place.
    return replaceStore(location, formatRegistryText(current.document)) ? StoreUpdate::Written : StoreUpdate::Failed;
}

} // namespace tabra::platform
