// Loading resource script files.
#include "platform/resources/resource_script_file.h"

#include "platform/resources/resource_script_parser.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace tabra::platform {

std::optional<std::string> readWholeFile(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::ostringstream content;
    content << file.rdbuf();
    if (file.bad()) return std::nullopt;
    return std::move(content).str();
}

std::unique_ptr<ResourceModule> readResourceScriptFile(const std::string &path, std::string &error) {
    std::optional<std::string> script = readWholeFile(path);
    if (!script) {
        error = path + ": cannot be read";
        return nullptr;
    }
    ResourceScriptParse parsed = parseResourceScript(*script, path);
    if (!parsed.tables) {
        error = std::move(parsed.error);
        return nullptr;
    }
    auto module = std::make_unique<ResourceModule>();
    module->path = path;
    module->tables = std::move(*parsed.tables);
    std::string folder = path.substr(0, path.rfind('/') + 1);
    for (auto &[id, file] : module->tables.pictures)
        if (file.front() != '/') file = folder + file;
    return module;
}

namespace {

void addSharedPictures(ResourceTables &tables, const std::string &sharedPath) {
    if (sharedPath.empty() || access(sharedPath.c_str(), F_OK) != 0) return;
    std::string error;
    std::unique_ptr<ResourceModule> shared = readResourceScriptFile(sharedPath, error);
    if (shared && (!shared->tables.strings.empty() || !shared->tables.dialogs.empty() || !shared->tables.menus.empty()))
        error = sharedPath + ": holds more than pictures";
    if (!error.empty()) {
        std::fprintf(stderr, "tabra: shared pictures not loaded: %s\n", error.c_str());
        return;
    }
    tables.pictures.merge(shared->tables.pictures); // the language's own pictures win
}

} // namespace

HMODULE loadResourceScriptFile(const std::string &path, const std::string &sharedPictures) {
    std::string error;
    std::unique_ptr<ResourceModule> module = readResourceScriptFile(path, error);
    if (!module) {
        std::fprintf(stderr, "tabra: resource library not loaded: %s\n", error.c_str());
        return nullptr;
    }
    addSharedPictures(module->tables, sharedPictures);
    return adoptResourceModule(std::move(module));
}

} // namespace tabra::platform
