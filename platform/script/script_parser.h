// The script text of the scripted driver: one action per line. The format is
// described at the top of script_parser.cpp and in include/tabra_script.h.
#pragma once

#include "platform/script/script_action.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::window {

struct ParsedLine {
    std::optional<ScriptAction> action; // none for a blank or comment line, or on error
    std::string error;                  // set when the line is not an action
};

// One line (UTF-8).
ParsedLine parseScriptLine(std::string_view line);

struct ParsedScript {
    std::vector<ScriptAction> actions;
    std::string error; // "name:line: message" for the first wrong line; actions empty then
};

// A whole script; name names it in errors (a file name, or "script").
ParsedScript parseScript(std::string_view text, std::string_view name);

} // namespace tabra::window
