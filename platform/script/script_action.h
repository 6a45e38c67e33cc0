// One action of a script: the prompt it waits for and what it does there.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace tabra::window {

enum class PromptKind { Dialog = 1, Message = 2, File = 3, Menu = 4, Progress = 5 };

enum class Verb {
    Set, Type, Select, Toggle, Check, Uncheck, Click, DoubleClick, RightClick, Drag, Close, Expect, Press, // dialogs
    Callback,                                                                                // dialogs (C++/C)
    Answer,                                                                                  // message boxes
    Choose, Cancel,                                                                          // files, menus
    Abort,                                                                                   // progress
};

// The dialog keys a script can press.
enum class DialogKey { Tab, BackTab, Enter, Escape };

// An entry of a list, combo, list view or tab control: by text or by index.
struct EntryReference {
    bool byIndex = false;
    int32_t index = 0;
    std::u16string text;
};

struct ScriptAction {
    static constexpr int32_t kAnyPrompt = -1;
    static constexpr int32_t kNoThreshold = std::numeric_limits<int32_t>::min();

    PromptKind prompt = PromptKind::Dialog;
    int32_t promptId = kAnyPrompt; // dialog template, message string id, menu resource id
    Verb verb = Verb::Click;
    int32_t control = 0;
    int32_t dropControl = 0;             // drag: the list the entry is dropped on
    std::u16string text;                 // set, type, expect, choose (file)
    std::vector<EntryReference> entries; // select, toggle, doubleclick, rightclick, check (list view item),
                                         // drag (the entry, then the one it is dropped before)
    int32_t answer = 0;                  // IDYES, IDNO, ... or the menu command
    DialogKey key = DialogKey::Enter;    // press
    int32_t abortAt = kNoThreshold;      // progress: abort once the position reaches this
    std::function<void(HWND)> callback;
    std::string source;                  // the line as written, for reports
};

// The action as one readable line ("dialog 103: click 1").
std::string describeAction(const ScriptAction &action);
std::string describePrompt(PromptKind kind, int32_t id);

} // namespace tabra::window
