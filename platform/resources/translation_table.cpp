// Translation tables and the modules that registered one.
#include "platform/resources/translation_table.h"

#include "platform/resources/resource_script_file.h"
#include "platform/resources/resource_script_lexer.h"
#include "platform/text/utf_conversion.h"

#include <cstdio>
#include <map>
#include <mutex>
#include <unistd.h>

namespace tabra::platform {
namespace {

struct TranslationModules {
    std::mutex lock;
    std::map<std::u16string, TranslationTable, std::less<>> tables;
};

TranslationModules &modules() {
    static TranslationModules *registered = new TranslationModules; // outlives every static destructor
    return *registered;
}

TranslationTable parseTable(std::string_view text) {
    ScriptLexer lexer(text);
    TranslationTable table;
    while (lexer.peek().kind != TokenKind::EndOfText) {
        Token original = lexer.next();
        if (original.kind != TokenKind::String)
            throw ScriptError(original.line, "expected the original text in quotes, found " + describeToken(original));
        if (original.text.empty()) throw ScriptError(original.line, "an empty text cannot be translated");
        Token equals = lexer.next();
        if (equals.kind != TokenKind::Equals)
            throw ScriptError(equals.line, "expected \"=\" after the original text, found " + describeToken(equals));
        Token replacement = lexer.next();
        if (replacement.kind != TokenKind::String)
            throw ScriptError(replacement.line, "expected the replacement in quotes, found " + describeToken(replacement));
        if (!table.emplace(std::move(original.text), std::move(replacement.text)).second)
            throw ScriptError(original.line, "this text is translated twice");
    }
    return table;
}

// A module name that is a plain file name (no folders, not empty).
bool isPlainName(std::u16string_view name) {
    return !name.empty() && name != u"." && name != u".." && name.find(u'/') == std::u16string_view::npos &&
           name.find(u'\0') == std::u16string_view::npos;
}

} // namespace

TranslationTableParse parseTranslationTable(std::string_view text, std::string_view sourceName) {
    TranslationTableParse result;
    try {
        result.table = parseTable(text);
    } catch (const ScriptError &error) {
        result.error = std::string(sourceName) + ":" + std::to_string(error.line()) + ": " + error.what();
    }
    return result;
}

bool registerTranslationModule(std::u16string_view moduleName, const std::string &folder) {
    unregisterTranslationModule(moduleName);
    if (!isPlainName(moduleName)) return true;
    std::string path = folder;
    if (!path.empty() && path.back() != '/') path.push_back('/');
    path += toUtf8(moduleName) + ".lts";
    if (access(path.c_str(), F_OK) != 0) return true;

    std::optional<std::string> text = readWholeFile(path);
    TranslationTableParse parsed;
    if (text) parsed = parseTranslationTable(*text, path);
    else parsed.error = path + ": cannot be read";
    if (!parsed.table) {
        std::fprintf(stderr, "tabra: translation table not used: %s\n", parsed.error.c_str());
        return false;
    }
    auto &registered = modules();
    std::lock_guard guard(registered.lock);
    registered.tables[std::u16string(moduleName)] = std::move(*parsed.table);
    return true;
}

void unregisterTranslationModule(std::u16string_view moduleName) {
    auto &registered = modules();
    std::lock_guard guard(registered.lock);
    auto found = registered.tables.find(moduleName);
    if (found != registered.tables.end()) registered.tables.erase(found);
}

std::optional<std::u16string> translationOf(std::u16string_view moduleName, std::u16string_view text) {
    auto &registered = modules();
    std::lock_guard guard(registered.lock);
    auto table = registered.tables.find(moduleName);
    if (table == registered.tables.end()) return std::nullopt;
    auto found = table->second.find(std::u16string(text));
    if (found == table->second.end()) return std::nullopt;
    return found->second;
}

} // namespace tabra::platform
