// What the scripted driver records of a run, in the order it happened. The fields
// follow TabraScriptRecord (tabra_script.h); the C++ record keeps the full history of
// a progress indicator and the control texts of a closed dialog.
#pragma once

#include "tabra_script.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tabra::window {

struct ScriptRecord {
    int32_t kind = 0; // TABRA_RECORD_*
    int32_t id = 0;
    int64_t value = 0;
    uint32_t style = 0;
    uint32_t code = 0;
    int32_t minimum = 0;
    int32_t maximum = 0;
    int32_t count = 0;
    std::u16string text;
    std::u16string caption;
    std::u16string detail;
    std::u16string detail2;
    std::vector<std::pair<int32_t, std::u16string>> controlTexts; // dialog closed: id, text
    std::vector<int32_t> positions;                              // progress: every update
    std::vector<std::u16string> lines;                           // progress: every text
};

// The text a closed dialog's control had, or nullptr.
const std::u16string *recordedControlText(const ScriptRecord &record, int32_t controlId);

// One readable line for the report.
std::string describeRecord(const ScriptRecord &record);

} // namespace tabra::window
