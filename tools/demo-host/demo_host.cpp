// The demo host's shared pieces: text conversion and the command registry.
#include "demo_host.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace demo {

std::u16string toUtf16(const std::string &text) {
    std::vector<char16_t> buffer(text.size() + 1);
    Ostrel_Utf8ToUtf16(text.c_str(), buffer.data(), static_cast<int32_t>(buffer.size()));
    return std::u16string(buffer.data());
}

std::string toUtf8(const char16_t *text) {
    std::u16string wide(text ? text : u"");
    std::vector<char> buffer(wide.size() * 3 + 1);
    Ostrel_Utf16ToUtf8(wide.c_str(), buffer.data(), static_cast<int32_t>(buffer.size()));
    return std::string(buffer.data());
}

std::string toUtf8(const std::u16string &text) { return toUtf8(text.c_str()); }

int32_t printChangingStatement(const char16_t *statement, void *) {
    std::string text = toUtf8(statement);
    if (text.rfind("SELECT", 0) != 0) std::printf("Statement: %s\n", text.c_str());
    return 1;
}

std::u16string unescapeArgument(const std::string &text) {
    std::u16string wide = toUtf16(text), result;
    for (size_t i = 0; i < wide.size(); ++i) {
        if (wide[i] != u'\\' || i + 1 == wide.size()) {
            result += wide[i];
            continue;
        }
        switch (wide[++i]) {
        case u't': result += u'\t'; break;
        case u'n': result += u'\n'; break;
        case u'v': result += u'\v'; break;
        case u'\\': result += u'\\'; break;
        default: result += u'\\'; result += wide[i]; break;
        }
    }
    return result;
}

namespace {

std::vector<const DemoCommand *> &registry() {
    static std::vector<const DemoCommand *> registered;
    return registered;
}

} // namespace

DemoCommand::DemoCommand(const char *name, const char *arguments, const char *purpose, CommandFunction run)
    : name(name), arguments(arguments), purpose(purpose), run(run) {
    registry().push_back(this);
}

std::vector<const DemoCommand *> commands() {
    std::vector<const DemoCommand *> sorted = registry();
    std::sort(sorted.begin(), sorted.end(),
              [](const DemoCommand *a, const DemoCommand *b) { return std::strcmp(a->name, b->name) < 0; });
    return sorted;
}

const DemoCommand *findCommand(const std::string &name) {
    for (const DemoCommand *command : registry())
        if (name == command->name) return command;
    return nullptr;
}

void printFirstRows(SQLHDBC connection, const std::u16string &statement) {
    constexpr int32_t kRowsCapacity = 4000;
    constexpr int kShownRows = 10;
    std::vector<char16_t> rows(kRowsCapacity);
    if (OdbcEh_SelectRowSetToBuffer(0, connection, statement.c_str(), u" | ", u"\n", rows.data(), kRowsCapacity, nullptr,
                                    0) != 1) {
        std::printf("The statement did not run.\n");
        return;
    }
    std::string text = toUtf8(rows.data());
    size_t at = 0;
    for (int row = 0; row < kShownRows && at < text.size(); ++row) {
        size_t end = text.find('\n', at);
        std::printf("  %s\n", text.substr(at, end - at).c_str());
        if (end == std::string::npos) return;
        at = end + 1;
    }
    if (at < text.size()) std::printf("  ...\n");
}

} // namespace demo
