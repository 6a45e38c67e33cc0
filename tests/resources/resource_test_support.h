// Helpers for the resource tests: the shipped resource folders, small scripts and
// readable assertion messages.
#pragma once

#include "ostrel_lts.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/translation_table.h"
#include "support/scoped_environment.h"

#include <filesystem>
#include <memory>
#include <string>

namespace tabra::test {

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

// ASCII of a text for assertion messages.
inline std::string narrow(const std::u16string &text) {
    std::string result;
    for (char16_t c : text) result.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    return result;
}

// A resource library made in memory from tables, freed at the end of the scope.
class ScopedResourceLibrary {
public:
    explicit ScopedResourceLibrary(platform::ResourceTables tables) {
        auto module = std::make_unique<platform::ResourceModule>();
        module->tables = std::move(tables);
        handle_ = platform::adoptResourceModule(std::move(module));
    }
    ~ScopedResourceLibrary() { Ostrel_FreeResourceLibrary(handle_); }
    ScopedResourceLibrary(const ScopedResourceLibrary &) = delete;
    ScopedResourceLibrary &operator=(const ScopedResourceLibrary &) = delete;
    HMODULE handle() const { return handle_; }

private:
    HMODULE handle_;
};

// Gives a translation module a table for one scope and takes it away afterwards.
class ScopedTranslation {
public:
    ScopedTranslation(const std::u16string &moduleName, const std::string &table) : moduleName_(moduleName) {
        tree_.write(narrow(moduleName) + ".lts", table);
        registered_ = platform::registerTranslationModule(moduleName, tree_.directory());
    }
    ~ScopedTranslation() { platform::unregisterTranslationModule(moduleName_); }
    ScopedTranslation(const ScopedTranslation &) = delete;
    ScopedTranslation &operator=(const ScopedTranslation &) = delete;
    bool registered() const { return registered_; }

private:
    TemporaryDirectory tree_;
    std::u16string moduleName_;
    bool registered_ = false;
};

} // namespace tabra::test
