// Helpers for the resource tests: folder trees in a temporary directory, scoped
// environment variables, the shipped resource folders, and UTF-16 text for messages.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <unistd.h>

namespace tabra::test {

// A temporary directory, removed with everything in it.
class TemporaryTree {
public:
    TemporaryTree() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tabra-resources-XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) root_ = pattern;
    }
    ~TemporaryTree() {
        std::error_code ignored;
        if (!root_.empty()) std::filesystem::remove_all(root_, ignored);
    }
    TemporaryTree(const TemporaryTree &) = delete;
    TemporaryTree &operator=(const TemporaryTree &) = delete;

    // The root with a trailing "/", as the loader takes directories.
    std::string directory() const { return root_.string() + "/"; }
    const std::filesystem::path &root() const { return root_; }

    // Writes a file at a path relative to the root, creating its folders.
    std::filesystem::path write(const std::string &relativePath, const std::string &content) const {
        std::filesystem::path file = root_ / relativePath;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
        return file;
    }

private:
    std::filesystem::path root_;
};

// Sets or (with null) unsets an environment variable for one scope.
class ScopedVariable {
public:
    ScopedVariable(const char *name, const char *value) : name_(name) {
        if (const char *old = std::getenv(name)) previous_ = old;
        if (value != nullptr) setenv(name, value, 1);
        else unsetenv(name);
    }
    ~ScopedVariable() {
        if (previous_) setenv(name_.c_str(), previous_->c_str(), 1);
        else unsetenv(name_.c_str());
    }
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;

private:
    std::string name_;
    std::optional<std::string> previous_;
};

// The directory that holds the shipped language folders (en, de, ...): the one the
// test environment names, else the build tree above the test program.
inline std::filesystem::path shippedResourceDirectory() {
    if (const char *configured = std::getenv("TABRA_RESOURCE_DIR"); configured != nullptr && configured[0] != '\0')
        return configured;
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
}

// A small resource script with one string, to tell loaded folders apart.
inline std::string scriptWithString(int id, const std::string &text) {
    return "STRINGTABLE\nBEGIN\n    " + std::to_string(id) + ", \"" + text + "\"\nEND\n";
}

// ASCII and UTF-8 for readable assertion messages.
inline std::string narrow(const std::u16string &text) {
    std::string result;
    for (char16_t c : text) result.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    return result;
}

} // namespace tabra::test
