// Translation tables: per module, texts and the texts that replace them.
//
// A table is a UTF-8 file of lines
//     "original" = "replacement"
// with the string rules of resource scripts ("" for a quote, \n \t \\ \") and
// // or /* */ comments. An empty original, a duplicate original or anything else
// fails the whole table with "name:line: message".
//
// Modules are registered with the folder their table lives in; the table is the
// file "<module name>.lts" there, read when the module is registered.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tabra::platform {

using TranslationTable = std::unordered_map<std::u16string, std::u16string>;

struct TranslationTableParse {
    std::optional<TranslationTable> table; // set when the text is sound
    std::string error;                     // "name:line: message" otherwise
};

TranslationTableParse parseTranslationTable(std::string_view text, std::string_view sourceName);

// Registers a module: reads "<folder>/<moduleName>.lts" when it exists. Returns false
// when the table exists but is faulty (the fault goes to stderr; the module then has
// no table). Registering again replaces the earlier registration.
bool registerTranslationModule(std::u16string_view moduleName, const std::string &folder);
void unregisterTranslationModule(std::u16string_view moduleName);

// The replacement of text for the module, or nothing.
std::optional<std::u16string> translationOf(std::u16string_view moduleName, std::u16string_view text);

} // namespace tabra::platform
