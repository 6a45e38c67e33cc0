// The scripted driver.
#include "platform/script/scripted_renderer.h"

#include "platform/resources/picture_resources.h"
#include "platform/text/case_folding.h"
#include "platform/text/utf_conversion.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/user_input.h"
#include "platform/window/window_registry.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace tabra::window {
namespace {

constexpr std::size_t kFallbackRecordLimit = 10000;

std::string quoted(const std::u16string &text) { return "\"" + platform::toUtf8(text) + "\""; }

const DialogState *dialogState(HWND handle) {
    auto window = findWindow(handle);
    return window ? window->as<DialogState>() : nullptr;
}

std::string describeDialog(HWND handle) {
    auto window = findWindow(handle);
    const auto *state = window ? window->as<DialogState>() : nullptr;
    if (!state) return "a dialog that is gone";
    return "dialog " + std::to_string(state->templateId) + " " + quoted(window->text);
}

bool visibleUpTo(const WindowPtr &window, HWND root) {
    for (auto current = window; current; current = findWindow(current->parent)) {
        if (!current->visible) return false;
        if (current->handle == root) return true;
    }
    return true;
}

void collectById(HWND handle, int32_t id, std::vector<WindowPtr> &found) {
    auto window = findWindow(handle);
    if (!window) return;
    for (HWND child : window->children) {
        auto control = findWindow(child);
        if (!control) continue;
        if (control->kind != WindowKind::Dialog && control->id == id) found.push_back(control);
        collectById(child, id, found);
    }
}

// The window the action is meant for: the modal dialog itself, or a visible page of
// it (a tab or wizard page) with that template.
HWND matchingDialog(HWND modal, int32_t templateId) {
    const auto *state = dialogState(modal);
    if (!state) return nullptr;
    if (state->templateId == templateId) return modal;
    std::vector<HWND> pending{modal};
    while (!pending.empty()) {
        auto window = findWindow(pending.back());
        pending.pop_back();
        if (!window) continue;
        for (HWND child : window->children) {
            auto control = findWindow(child);
            if (!control || !control->visible) continue;
            if (const auto *page = control->as<DialogState>(); page && page->templateId == templateId) return child;
            pending.push_back(child);
        }
    }
    return nullptr;
}

// Controls are looked up in the matched page (or dialog) first, then in the whole
// dialog, visible ones before hidden ones.
WindowPtr findControl(HWND modal, HWND target, int32_t id) {
    std::vector<WindowPtr> found;
    if (auto window = findWindow(target))
        for (HWND child : window->children)
            if (auto control = findWindow(child); control && control->id == id && control->kind != WindowKind::Dialog)
                return control;
    collectById(modal, id, found);
    for (const auto &control : found)
        if (visibleUpTo(control, modal)) return control;
    return found.empty() ? nullptr : found.front();
}

std::vector<std::u16string> entryTexts(const Window &control) {
    std::vector<std::u16string> texts;
    if (const auto *list = control.as<ListBoxState>())
        for (const auto &entry : list->entries) texts.push_back(entry.text);
    if (const auto *combo = control.as<ComboBoxState>())
        for (const auto &entry : combo->entries) texts.push_back(entry.text);
    if (const auto *view = control.as<ListViewState>())
        for (const auto &item : view->items) texts.push_back(item.texts.empty() ? std::u16string() : item.texts[0]);
    if (const auto *tab = control.as<TabState>())
        for (const auto &item : tab->items) texts.push_back(item.text);
    return texts;
}

// Entry references as indices: texts match exactly first, then ignoring case.
std::optional<std::string> resolveEntries(const Window &control, const std::vector<EntryReference> &references,
                                          std::vector<int32_t> &indices) {
    auto texts = entryTexts(control);
    for (const auto &reference : references) {
        if (reference.byIndex) {
            indices.push_back(reference.index);
            continue;
        }
        auto exact = std::find(texts.begin(), texts.end(), reference.text);
        if (exact == texts.end())
            exact = std::find_if(texts.begin(), texts.end(), [&](const std::u16string &text) {
                return platform::equalIgnoringCase(text, reference.text);
            });
        if (exact == texts.end())
            return std::string(kindName(control.kind)) + " " + std::to_string(control.id) + " has no entry " +
                   quoted(reference.text);
        indices.push_back(static_cast<int32_t>(exact - texts.begin()));
    }
    return std::nullopt;
}

std::string buttonNames(uint32_t style) {
    std::string names;
    for (int32_t button : messageBoxButtons(style)) {
        static const char *const kNames[] = {"", "ok", "cancel", "abort", "retry", "ignore", "yes", "no"};
        if (!names.empty()) names += ", ";
        names += kNames[button];
    }
    return names;
}

} // namespace

void ScriptedRenderer::beginRun() {
    actions_.clear();
    records_.clear();
    progressRecords_.clear();
    failed_ = false;
    discardPostedMessages();
}

void ScriptedRenderer::queue(ScriptAction action) { actions_.push_back(std::move(action)); }

void ScriptedRenderer::trimFallbackRecords() {
    // As the fallback of a host without a display nobody reads the records: keep them
    // from growing without end. Called where a prompt begins, never within one, so that
    // indices taken during a prompt stay valid.
    if (fallback_ && records_.size() >= kFallbackRecordLimit) {
        records_.clear();
        progressRecords_.clear();
    }
}

ScriptRecord &ScriptedRenderer::record(int32_t kind) {
    records_.emplace_back();
    records_.back().kind = kind;
    return records_.back();
}

void ScriptedRenderer::fail(const std::string &description) {
    std::string text = failed_ ? description + " (the run had already failed)" : description;
    failed_ = true;
    record(TABRA_RECORD_FAILURE).text = platform::fromUtf8(text);
    if (fallback_) std::fprintf(stderr, "tabra: no user interface available: %s\n", text.c_str());
}

const ScriptAction *ScriptedRenderer::expect(PromptKind kind, int32_t id, const std::string &prompt) {
    if (failed_) {
        fail(prompt + " was cancelled");
        return nullptr;
    }
    if (actions_.empty()) {
        fail(prompt + " waits for the user, but no action is left");
        return nullptr;
    }
    const ScriptAction &next = actions_.front();
    bool idMatches = next.promptId == ScriptAction::kAnyPrompt || next.promptId == id;
    if (next.prompt != kind || (kind != PromptKind::Dialog && !idMatches)) {
        fail(prompt + " waits for the user, but the next action is \"" + describeAction(next) + "\"");
        return nullptr;
    }
    return &next;
}

ScriptAction ScriptedRenderer::take() {
    ScriptAction action = std::move(actions_.front());
    actions_.pop_front();
    record(TABRA_RECORD_ACTION).text = platform::fromUtf8(describeAction(action));
    return action;
}

void ScriptedRenderer::windowCreated(HWND root) {
    trimFallbackRecords();
    auto window = findWindow(root);
    if (!window) return;
    if (const auto *dialog = window->as<DialogState>()) {
        if (window->parent) return; // pages belong to their dialog
        auto &opened = record(TABRA_RECORD_DIALOG_OPENED);
        opened.id = dialog->templateId;
        opened.text = window->text;
        for (HWND child : window->children) {
            auto control = findWindow(child);
            if (!control) continue;
            if (control->kind == WindowKind::Picture && opened.detail.empty())
                opened.detail = platform::fromUtf8(platform::pictureFileNamed(dialog->module, control->text));
            if (control->as<DialogState>() && control->visible) recordPage(*control);
        }
    } else if (const auto *notice = window->as<NoticeState>()) {
        auto &shown = record(TABRA_RECORD_NOTICE);
        shown.id = notice->stringId;
        shown.text = window->text;
        shown.value = notice->seconds;
        shown.style = notice->colour;
    } else if (const auto *progress = window->as<ProgressIndicatorState>()) {
        auto &created = record(TABRA_RECORD_PROGRESS);
        created.caption = window->text;
        created.text = progress->line;
        created.minimum = progress->minimum;
        created.maximum = progress->maximum;
        created.value = progress->position;
        created.detail = progress->abortable ? u"abortable" : u"";
        progressRecords_[root] = records_.size() - 1;
    }
}

void ScriptedRenderer::recordPage(const Window &page) {
    auto parent = findWindow(page.parent);
    const auto *frame = parent ? parent->as<DialogState>() : nullptr;
    if (!frame) return; // a tab page
    auto &shown = record(TABRA_RECORD_PAGE);
    shown.id = page.as<DialogState>()->templateId;
    shown.value = frame->templateId;
    shown.text = page.text;
}

void ScriptedRenderer::windowChanged(HWND handle, Change change, int32_t) {
    if (change == Change::Visible)
        if (auto page = findWindow(handle); page && page->visible && page->parent && page->as<DialogState>())
            recordPage(*page);
    auto found = progressRecords_.find(handle);
    if (found == progressRecords_.end()) return;
    auto window = findWindow(handle);
    const auto *progress = window ? window->as<ProgressIndicatorState>() : nullptr;
    if (!progress) return;
    auto &entry = records_[found->second];
    if (change == Change::Position) {
        if (progress->aborted) entry.code = 1;
        if (entry.value != progress->position || entry.positions.empty()) {
            entry.value = progress->position;
            if (!fallback_) entry.positions.push_back(progress->position);
            ++entry.count;
        }
    } else if (change == Change::Text) {
        entry.text = progress->line;
        if (!fallback_) entry.lines.push_back(progress->line);
    }
}

void ScriptedRenderer::windowDestroying(HWND root) { progressRecords_.erase(root); }

void ScriptedRenderer::modalLoopStarted(HWND) {}

bool ScriptedRenderer::waitForInput(HWND modal) {
    trimFallbackRecords();
    const auto *state = dialogState(modal);
    if (!state) return false;
    const ScriptAction *next = expect(PromptKind::Dialog, state->templateId, describeDialog(modal));
    if (!next) return false;
    HWND target = matchingDialog(modal, next->promptId);
    if (!target) {
        fail(describeDialog(modal) + " waits for the user, but the next action is \"" + describeAction(*next) + "\"");
        return false;
    }
    ScriptAction action = take();
    if (auto refused = perform(modal, target, action)) {
        fail("\"" + describeAction(action) + "\": " + *refused);
        return false;
    }
    return true;
}

std::optional<std::string> ScriptedRenderer::perform(HWND modal, HWND target, const ScriptAction &action) {
    if (action.verb == Verb::Callback) {
        if (action.callback) action.callback(target);
        return std::nullopt;
    }
    if (action.verb == Verb::Close) return input::closeDialog(modal);
    if (action.verb == Verb::Press) {
        switch (action.key) {
        case DialogKey::Tab: return input::pressTab(modal, false);
        case DialogKey::BackTab: return input::pressTab(modal, true);
        case DialogKey::Enter: return input::pressEnter(modal);
        case DialogKey::Escape: return input::pressEscape(modal);
        }
    }
    WindowPtr control = findControl(modal, target, action.control);
    if (!control) return describeDialog(modal) + " has no control " + std::to_string(action.control);
    HWND handle = control->handle;
    std::vector<int32_t> indices;
    if (!action.entries.empty()) {
        std::vector<EntryReference> own(action.entries.begin(),
                                        action.verb == Verb::Drag ? action.entries.begin() + 1 : action.entries.end());
        if (auto refused = resolveEntries(*control, own, indices)) return refused;
    }
    switch (action.verb) {
    case Verb::Set: return input::replaceText(handle, action.text);
    case Verb::Type: return input::typeText(handle, action.text);
    case Verb::Select: return input::selectEntries(handle, indices);
    case Verb::Toggle: return input::toggleEntry(handle, indices.front());
    case Verb::Check:
    case Verb::Uncheck: {
        bool checked = action.verb == Verb::Check;
        if (control->kind == WindowKind::ListView && !indices.empty()) return input::setItemChecked(handle, indices.front(), checked);
        return input::setChecked(handle, checked);
    }
    case Verb::Click: return input::click(handle);
    case Verb::DoubleClick: return input::doubleClick(handle, indices.empty() ? -1 : indices.front());
    case Verb::RightClick: return input::rightClick(handle, indices.empty() ? -1 : indices.front());
    case Verb::Drag: {
        WindowPtr drop = findControl(modal, target, action.dropControl);
        if (!drop) return describeDialog(modal) + " has no control " + std::to_string(action.dropControl);
        std::vector<int32_t> before;
        if (action.entries.size() > 1)
            if (auto refused = resolveEntries(*drop, {action.entries[1]}, before)) return refused;
        auto position = before.empty() ? static_cast<int32_t>(entryTexts(*drop).size()) : before.front();
        return input::dropEntry(handle, indices.front(), drop->handle, position);
    }
    case Verb::Expect:
        if (control->text != action.text)
            return std::string(kindName(control->kind)) + " " + std::to_string(action.control) + " shows " +
                   quoted(control->text) + ", not " + quoted(action.text);
        return std::nullopt;
    default: return std::string("this action does not belong to a dialog");
    }
}

void ScriptedRenderer::modalLoopEnded(HWND modal) {
    auto window = findWindow(modal);
    const auto *state = window ? window->as<DialogState>() : nullptr;
    if (!state) return;
    auto &closed = record(TABRA_RECORD_DIALOG_CLOSED);
    closed.id = state->templateId;
    closed.text = window->text;
    closed.value = state->result;
    std::vector<HWND> pending(window->children.rbegin(), window->children.rend());
    while (!pending.empty()) {
        auto control = findWindow(pending.back());
        pending.pop_back();
        if (!control) continue;
        if (control->kind != WindowKind::Dialog && control->id != -1 && !recordedControlText(closed, control->id))
            closed.controlTexts.emplace_back(control->id, control->text);
        pending.insert(pending.end(), control->children.rbegin(), control->children.rend());
    }
}

void ScriptedRenderer::pumpPendingInput(HWND busy) {
    if (failed_ || actions_.empty() || actions_.front().prompt != PromptKind::Progress) return;
    auto window = findWindow(busy);
    const auto *progress = window ? window->as<ProgressIndicatorState>() : nullptr;
    if (!progress) return;
    const ScriptAction &next = actions_.front();
    if (next.abortAt != ScriptAction::kNoThreshold && progress->position < next.abortAt) return;
    ScriptAction action = take();
    if (auto refused = input::pressAbort(busy)) fail("\"" + describeAction(action) + "\": " + *refused);
}

int32_t ScriptedRenderer::messageBox(const MessageBoxPrompt &prompt) {
    trimFallbackRecords();
    std::size_t index = records_.size();
    auto &shown = record(TABRA_RECORD_MESSAGE);
    shown.id = prompt.stringId;
    shown.text = prompt.text;
    shown.caption = prompt.caption;
    shown.style = prompt.style;
    shown.code = prompt.messageCode;
    int32_t answer = cancelLikeAnswer(prompt.style);
    std::string description = "message " + std::to_string(prompt.stringId) + " " + quoted(prompt.text);
    if (expect(PromptKind::Message, prompt.stringId, description)) {
        ScriptAction action = take();
        auto buttons = messageBoxButtons(prompt.style);
        if (std::find(buttons.begin(), buttons.end(), action.answer) != buttons.end())
            answer = action.answer;
        else
            fail("\"" + describeAction(action) + "\": " + description + " offers only " + buttonNames(prompt.style));
    }
    records_[index].value = answer;
    return answer;
}

int32_t ScriptedRenderer::popupMenu(const MenuPrompt &prompt) {
    trimFallbackRecords();
    std::size_t index = records_.size();
    record(TABRA_RECORD_MENU).id = prompt.menuId;
    int32_t command = 0;
    std::string description = "menu " + std::to_string(prompt.menuId);
    if (expect(PromptKind::Menu, prompt.menuId, description)) {
        ScriptAction action = take();
        if (action.verb == Verb::Choose) {
            if (menuOffersCommand(prompt.entries, action.answer))
                command = action.answer;
            else
                fail("\"" + describeAction(action) + "\": " + description + " offers no enabled command " +
                     std::to_string(action.answer));
        }
    }
    records_[index].value = command;
    return command;
}

std::optional<std::u16string> ScriptedRenderer::fileName(const FileNamePrompt &prompt) {
    trimFallbackRecords();
    std::size_t index = records_.size();
    auto &shown = record(TABRA_RECORD_FILE_DIALOG);
    shown.id = prompt.save ? 1 : 0;
    shown.caption = prompt.title;
    shown.text = prompt.proposedName;
    for (const auto &[description, patterns] : prompt.filters) {
        if (!shown.detail.empty()) shown.detail += u'|';
        shown.detail += description + u"|" + patterns;
    }
    std::optional<std::u16string> chosen;
    std::string description = std::string(prompt.save ? "save" : "open") + " file dialog " + quoted(prompt.title);
    if (expect(PromptKind::File, ScriptAction::kAnyPrompt, description)) {
        ScriptAction action = take();
        if (action.verb == Verb::Choose) {
            if (!prompt.save && ::access(platform::toUtf8(action.text).c_str(), F_OK) != 0)
                fail("\"" + describeAction(action) + "\": the file does not exist, and an open dialog takes only existing files");
            else
                chosen = action.text;
        }
    }
    records_[index].value = chosen ? 1 : 0;
    if (chosen) records_[index].detail2 = *chosen;
    return chosen;
}

void ScriptedRenderer::beep(uint32_t type) { record(TABRA_RECORD_BEEP).id = static_cast<int32_t>(type); }

void ScriptedRenderer::cursorChanged(int32_t cursorId) { record(TABRA_RECORD_CURSOR).id = cursorId; }

void ScriptedRenderer::helpRequested(HMODULE, int32_t topic) { record(TABRA_RECORD_HELP).id = topic; }

void ScriptedRenderer::engineProblem(const std::string &description) { fail(description); }

std::string ScriptedRenderer::report() const {
    std::string text = failed_ ? "Scripted run FAILED\n" : "Scripted run passed\n";
    int number = 0;
    for (const auto &entry : records_) text += "  " + std::to_string(++number) + ". " + describeRecord(entry) + "\n";
    if (!actions_.empty()) {
        text += "Actions not used (" + std::to_string(actions_.size()) + "):\n";
        for (const auto &action : actions_) text += "  - " + describeAction(action) + "\n";
    }
    return text;
}

} // namespace tabra::window
