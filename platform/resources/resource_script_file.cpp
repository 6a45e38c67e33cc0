// Loading resource libraries from their script files.
#include "platform/resources/resource_script_file.h"

#include "platform/resources/resource_script_parser.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
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

std::vector<std::string> resourceScriptsOf(const std::string &mainPath) {
    namespace fs = std::filesystem;
    fs::path main(mainPath);
    std::string prefix = main.stem().string() + "-";
    std::vector<std::string> family;
    std::error_code failed, notAFile;
    fs::path folder = main.parent_path().empty() ? fs::path(".") : main.parent_path();
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed)) {
        std::string name = entry->path().filename().string();
        if (name.size() > prefix.size() + 3 && name.starts_with(prefix) && name.ends_with(".rc") &&
            entry->is_regular_file(notAFile))
            family.push_back((main.parent_path() / name).string());
    }
    std::sort(family.begin(), family.end());
    family.insert(family.begin(), mainPath);
    return family;
}

namespace {

std::unique_ptr<ResourceModule> readScripts(const std::vector<std::string> &paths, std::string &error) {
    auto module = std::make_unique<ResourceModule>();
    module->path = paths.front();
    ResourceOrigins origins;
    for (const std::string &path : paths) {
        std::optional<std::string> script = readWholeFile(path);
        if (!script) {
            error = path + ": cannot be read";
            return nullptr;
        }
        error = parseResourceScriptInto(*script, path, module->tables, origins);
        if (!error.empty()) return nullptr;
    }
    return module;
}

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

std::unique_ptr<ResourceModule> readResourceLibrary(const std::string &mainPath, std::string &error) {
    return readScripts(resourceScriptsOf(mainPath), error);
}

std::unique_ptr<ResourceModule> readResourceScriptFile(const std::string &path, std::string &error) {
    return readScripts({path}, error);
}

HMODULE loadResourceLibraryFile(const std::string &mainPath, const std::string &sharedPictures) {
    std::string error;
    std::unique_ptr<ResourceModule> module = readResourceLibrary(mainPath, error);
    if (!module) {
        std::fprintf(stderr, "tabra: resource library not loaded: %s\n", error.c_str());
        return nullptr;
    }
    addSharedPictures(module->tables, sharedPictures);
    return adoptResourceModule(std::move(module));
}

} // namespace tabra::platform
