// The public C interface of the scripted driver.
#include "tabra_script.h"

#include "platform/text/bounded_text.h"
#include "platform/text/utf_conversion.h"
#include "platform/window/renderer_selection.h"
#include "platform/script/script_parser.h"
#include "platform/script/scripted_renderer.h"

#include <cstring>
#include <fstream>
#include <sstream>

using namespace tabra::window;

namespace {

std::string &lastError() {
    static auto *error = new std::string;
    return *error;
}

int32_t copyUtf8(const std::string &text, char *buffer, int32_t capacity) {
    if (buffer && capacity >= 1) {
        std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity - 1));
        // Never cut inside a UTF-8 sequence.
        while (length > 0 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
        std::memcpy(buffer, text.data(), length);
        buffer[length] = 0;
    }
    return static_cast<int32_t>(text.size());
}

int32_t queueParsed(const ParsedScript &script) {
    lastError() = script.error;
    if (!script.error.empty()) return -1;
    for (const auto &action : script.actions) scriptedRenderer().queue(action);
    return static_cast<int32_t>(script.actions.size());
}

int32_t queueLine(const std::string &line) {
    ParsedLine parsed = parseScriptLine(line);
    if (!parsed.action) {
        lastError() = parsed.error.empty() ? "the line holds no action" : parsed.error;
        return 0;
    }
    lastError().clear();
    scriptedRenderer().queue(std::move(*parsed.action));
    return 1;
}

} // namespace

extern "C" {

void TabraScript_Begin(void) {
    selectScriptedRenderer();
    scriptedRenderer().beginRun();
    lastError().clear();
}

void TabraScript_End(void) {
    scriptedRenderer().beginRun();
    releaseScriptedRenderer();
    lastError().clear();
}

int32_t TabraScript_Queue(const char16_t *line) {
    return line ? queueLine(tabra::platform::toUtf8(line)) : 0;
}

int32_t TabraScript_QueueUtf8(const char *line) { return line ? queueLine(line) : 0; }

int32_t TabraScript_LoadText(const char16_t *text) {
    if (!text) return -1;
    return queueParsed(parseScript(tabra::platform::toUtf8(text), "script"));
}

int32_t TabraScript_LoadFile(const char *path) {
    if (!path) return -1;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        lastError() = std::string(path) + ": cannot be read";
        return -1;
    }
    std::ostringstream content;
    content << file.rdbuf();
    return queueParsed(parseScript(content.str(), path));
}

int32_t TabraScript_QueueCallback(int32_t templateId, TabraScriptCallback callback, void *context) {
    if (!callback) return 0;
    ScriptAction action;
    action.prompt = PromptKind::Dialog;
    action.promptId = templateId;
    action.verb = Verb::Callback;
    action.callback = [callback, context](HWND dialog) { callback(dialog, context); };
    action.source = "dialog " + std::to_string(templateId) + ": (callback)";
    scriptedRenderer().queue(std::move(action));
    return 1;
}

int32_t TabraScript_Failed(void) { return scriptedRenderer().failed() ? 1 : 0; }

int32_t TabraScript_PendingCount(void) { return static_cast<int32_t>(scriptedRenderer().pendingCount()); }

int32_t TabraScript_LastError(char *buffer, int32_t capacity) { return copyUtf8(lastError(), buffer, capacity); }

int32_t TabraScript_Report(char16_t *buffer, int32_t capacity) {
    std::u16string text = tabra::platform::fromUtf8(scriptedRenderer().report());
    if (buffer && capacity >= 1) tabra::platform::writeBounded(buffer, capacity, text);
    return static_cast<int32_t>(text.size());
}

int32_t TabraScript_ReportUtf8(char *buffer, int32_t capacity) {
    return copyUtf8(scriptedRenderer().report(), buffer, capacity);
}

int32_t TabraScript_RecordCount(void) { return static_cast<int32_t>(scriptedRenderer().records().size()); }

int32_t TabraScript_GetRecord(int32_t index, TabraScriptRecord *out) {
    const auto &records = scriptedRenderer().records();
    if (!out || index < 0 || index >= static_cast<int32_t>(records.size())) return 0;
    const ScriptRecord &entry = records[static_cast<std::size_t>(index)];
    out->kind = entry.kind;
    out->id = entry.id;
    out->value = entry.value;
    out->style = entry.style;
    out->code = entry.code;
    out->minimum = entry.minimum;
    out->maximum = entry.maximum;
    out->count = entry.count;
    out->text = entry.text.c_str();
    out->caption = entry.caption.c_str();
    out->detail = entry.detail.c_str();
    out->detail2 = entry.detail2.c_str();
    return 1;
}

int32_t TabraScript_FindRecord(int32_t kind, int32_t id, int32_t start) {
    const auto &records = scriptedRenderer().records();
    for (int32_t i = std::max(start, 0); i < static_cast<int32_t>(records.size()); ++i) {
        const auto &entry = records[static_cast<std::size_t>(i)];
        if (entry.kind == kind && (id == -1 || entry.id == id)) return i;
    }
    return -1;
}

int32_t TabraScript_GetRecordControlText(int32_t index, int32_t controlId, char16_t *buffer, int32_t capacity) {
    const auto &records = scriptedRenderer().records();
    if (index < 0 || index >= static_cast<int32_t>(records.size())) return -1;
    const auto &entry = records[static_cast<std::size_t>(index)];
    if (entry.kind != TABRA_RECORD_DIALOG_CLOSED) return -1;
    const std::u16string *text = recordedControlText(entry, controlId);
    if (!text) return -1;
    if (!buffer || capacity < 1) return static_cast<int32_t>(text->size());
    return tabra::platform::writeBounded(buffer, capacity, *text);
}

} // extern "C"
