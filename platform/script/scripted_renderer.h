// The scripted driver: a renderer that plays the user from a queue of actions and
// records everything shown. Its rules (matching prompts, failing cleanly, never
// hanging) are described in include/tabra_script.h.
#pragma once

#include "platform/window/renderer.h"
#include "platform/window/window_object.h"
#include "platform/script/script_action.h"
#include "platform/script/script_record.h"

#include <deque>
#include <map>
#include <string>

namespace tabra::window {

class ScriptedRenderer : public Renderer {
public:
    // Starts a new run: no actions, no records, not failed; queued messages are dropped.
    void beginRun();
    void queue(ScriptAction action);
    bool failed() const { return failed_; }
    std::size_t pendingCount() const { return actions_.size(); }
    const std::deque<ScriptRecord> &records() const { return records_; }
    // The run as readable text (UTF-8).
    std::string report() const;
    // As the fallback renderer (no display, nothing selected), each failure is also
    // written to stderr, so a user learns why a dialog did not appear.
    void setFallback(bool fallback) { fallback_ = fallback; }

    const char *name() const override { return "script"; }
    void windowCreated(HWND root) override;
    void windowChanged(HWND window, Change change, int32_t index) override;
    void windowDestroying(HWND root) override;
    void modalLoopStarted(HWND dialog) override;
    bool waitForInput(HWND dialog) override;
    void modalLoopEnded(HWND dialog) override;
    void pumpPendingInput(HWND busy) override;
    int32_t messageBox(const MessageBoxPrompt &prompt) override;
    int32_t popupMenu(const MenuPrompt &prompt) override;
    std::optional<std::u16string> fileName(const FileNamePrompt &prompt) override;
    void beep(uint32_t type) override;
    void cursorChanged(int32_t cursorId) override;
    void helpRequested(HMODULE module, int32_t topic) override;
    void engineProblem(const std::string &description) override;

private:
    ScriptRecord &record(int32_t kind);
    // A page directly inside a dialog (a wizard page) became the visible one.
    void recordPage(const Window &page);
    void trimFallbackRecords();
    void fail(const std::string &description);
    // The next action when it is meant for this prompt; otherwise the run fails with a
    // description of the prompt (and nullptr is returned).
    const ScriptAction *expect(PromptKind kind, int32_t id, const std::string &prompt);
    ScriptAction take();
    std::optional<std::string> perform(HWND dialog, HWND target, const ScriptAction &action);

    std::deque<ScriptAction> actions_;
    std::deque<ScriptRecord> records_;
    std::map<HWND, std::size_t> progressRecords_;
    bool failed_ = false;
    bool fallback_ = false;
};

} // namespace tabra::window
