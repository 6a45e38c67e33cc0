// Lines of the scripted driver's language built from resource ids, so that tests name
// dialogs, controls and messages by their constants. (Header only.)
#pragma once

#include "support/test_text.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::test {

// A text in the script's quotes, with its quotes, backslashes, line breaks and tabs
// escaped.
inline std::string quoted(std::u16string_view text) {
    std::string line = "\"";
    for (char c : toUtf8(text)) {
        if (c == '\n' || c == '\r' || c == '\t') {
            line += c == '\n' ? "\\n" : c == '\r' ? "\\r" : "\\t";
            continue;
        }
        if (c == '"' || c == '\\') line.push_back('\\');
        line.push_back(c);
    }
    return line + "\"";
}

// "dialog <dialog>: <action> <control>[ <argument>]"; the argument is a quoted text
// or entry numbers ("#0 #2").
inline std::string onDialog(int32_t dialog, std::string_view action, int32_t control, std::string_view argument = {}) {
    std::string line = "dialog " + std::to_string(dialog) + ": " + std::string(action) + " " + std::to_string(control);
    if (!argument.empty()) line += " " + std::string(argument);
    return line;
}
inline std::string click(int32_t dialog, int32_t control) { return onDialog(dialog, "click", control); }

// "message <message>: answer <answer>".
inline std::string answer(int32_t message, std::string_view answer) {
    return "message " + std::to_string(message) + ": answer " + std::string(answer);
}

} // namespace tabra::test
