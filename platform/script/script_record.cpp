// Recorded events as readable report lines.
#include "platform/script/script_record.h"

#include "platform/text/utf_conversion.h"

namespace tabra::window {
namespace {

std::string quoted(const std::u16string &text) {
    std::string out = "\"";
    for (char c : platform::toUtf8(text)) {
        if (c == '\n') out += "\\n";
        else if (c == '\r') out += "\\r";
        else if (c == '"') out += "\\\"";
        else out += c;
    }
    return out + "\"";
}

const char *answerName(int64_t answer) {
    switch (answer) {
    case 1: return "ok";
    case 2: return "cancel";
    case 3: return "abort";
    case 4: return "retry";
    case 5: return "ignore";
    case 6: return "yes";
    case 7: return "no";
    default: return "?";
    }
}

} // namespace

const std::u16string *recordedControlText(const ScriptRecord &record, int32_t controlId) {
    for (const auto &[id, text] : record.controlTexts)
        if (id == controlId) return &text;
    return nullptr;
}

std::string describeRecord(const ScriptRecord &record) {
    std::string id = std::to_string(record.id);
    switch (record.kind) {
    case TABRA_RECORD_DIALOG_OPENED: return "dialog " + id + " " + quoted(record.text) + " opened";
    case TABRA_RECORD_DIALOG_CLOSED: {
        std::string line = "dialog " + id + " closed with " + std::to_string(record.value);
        for (const auto &[control, text] : record.controlTexts)
            if (!text.empty()) line += "; " + std::to_string(control) + "=" + quoted(text);
        return line;
    }
    case TABRA_RECORD_MESSAGE:
        return "message " + id + " " + quoted(record.text) + " (caption " + quoted(record.caption) + ") answered " +
               answerName(record.value);
    case TABRA_RECORD_NOTICE: return "notice " + id + " " + quoted(record.text);
    case TABRA_RECORD_PROGRESS:
        return "progress " + quoted(record.caption) + " " + std::to_string(record.minimum) + ".." +
               std::to_string(record.maximum) + ", " + std::to_string(record.count) + " updates, last at " +
               std::to_string(record.value) + (record.code ? ", aborted" : "");
    case TABRA_RECORD_MENU:
        return "menu " + id + (record.value ? " chose " + std::to_string(record.value) : std::string(" dismissed"));
    case TABRA_RECORD_FILE_DIALOG:
        return std::string(record.id ? "save" : "open") + " file dialog " + quoted(record.caption) + " proposing " +
               quoted(record.text) + (record.value ? ", chose " + quoted(record.detail2) : std::string(", cancelled"));
    case TABRA_RECORD_HELP: return "help topic " + id;
    case TABRA_RECORD_CURSOR: return "cursor " + id;
    case TABRA_RECORD_BEEP: return "beep " + std::to_string(static_cast<uint32_t>(record.id));
    case TABRA_RECORD_FAILURE: return "FAILURE: " + platform::toUtf8(record.text);
    case TABRA_RECORD_ACTION: return "action " + platform::toUtf8(record.text);
    case TABRA_RECORD_PAGE: return "page " + id + " " + quoted(record.text) + " of dialog " + std::to_string(record.value);
    default: return "record " + std::to_string(record.kind);
    }
}

} // namespace tabra::window
