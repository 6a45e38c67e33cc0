// Scoped pieces of a test's surroundings, restored or removed when the test ends:
// environment variables, temporary directories with files in them, and a private
// registry root. (Header only.)
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

#include <unistd.h>

namespace tabra::test {

// Sets (or with a null value unsets) an environment variable for one scope.
class ScopedEnvironmentVariable {
public:
    ScopedEnvironmentVariable(const char *name, const char *value) : name_(name) {
        if (const char *old = std::getenv(name)) previous_ = old;
        if (value) setenv(name, value, 1);
        else unsetenv(name);
    }
    ~ScopedEnvironmentVariable() {
        if (previous_) setenv(name_.c_str(), previous_->c_str(), 1);
        else unsetenv(name_.c_str());
    }
    ScopedEnvironmentVariable(const ScopedEnvironmentVariable &) = delete;
    ScopedEnvironmentVariable &operator=(const ScopedEnvironmentVariable &) = delete;

private:
    std::string name_;
    std::optional<std::string> previous_;
};

inline std::string readWholeFile(const std::filesystem::path &file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline void writeWholeFile(const std::filesystem::path &file, const std::string &text) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc) << text;
}

// A fresh directory below the system's temporary directory, removed with its contents.
class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tabra-test-XXXXXX").string();
        if (mkdtemp(pattern.data())) path_ = pattern;
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory &) = delete;
    TemporaryDirectory &operator=(const TemporaryDirectory &) = delete;

    const std::filesystem::path &path() const { return path_; }
    // The path with a trailing "/", as the resource loader takes directories.
    std::string directory() const { return path_.string() + "/"; }
    // Writes a file at a path relative to the directory, creating its folders.
    std::filesystem::path write(const std::string &relativePath, const std::string &content) const {
        writeWholeFile(path_ / relativePath, content);
        return path_ / relativePath;
    }

private:
    std::filesystem::path path_;
};

// All registry roots of the process live in a temporary directory for one scope.
class ScopedRegistryRoot {
public:
    ScopedRegistryRoot() : variable_("TABRA_REGISTRY_ROOT", directory_.path().c_str()) {}
    const std::filesystem::path &path() const { return directory_.path(); }
    std::filesystem::path currentUserFile() const { return path() / "current-user.reg"; }

private:
    TemporaryDirectory directory_;
    ScopedEnvironmentVariable variable_;
};

} // namespace tabra::test
