// The renderer interface: what draws the engine's windows and turns a user's input
// into engine calls. Two renderers exist: the scripted driver (scripted_renderer.h),
// and the GTK renderer (platform/gtk/, built with TABRA_WITH_GTK). The engine owns all
// state; a renderer mirrors it and never changes it except through user_input.h.
//
// How a renderer mirrors the engine:
// - windowCreated(root) is called once for a top-level dialog, notice or progress
//   indicator after it is complete (for a dialog: after WM_INITDIALOG returned), and
//   for a page (a dialog created with CreateDialogParamW under a window the renderer
//   already knows) after its WM_INITDIALOG. The root and ALL its descendants exist
//   then, pages created earlier included; read them through window_registry.h
//   (findWindow) and the state records of window_object.h. Windows the renderer has
//   been told about have Window::announced set.
// - windowChanged(window, change, index) follows every later change of an announced
//   window's state (text, enabled, visible, check, entries, selection, ...). index is
//   the entry concerned, or -1 when the whole window (or several entries) changed.
//   Changes made while the renderer calls into user_input.h are reported too: a
//   renderer must not turn its own widget updates back into user input.
// - windowDestroying(root) comes before a window the renderer knows is destroyed
//   (once, for the topmost window destroyed; its descendants go with it).
//
// Modal loops (all on the caller's thread; nested loops nest on the C stack):
// - modalLoopStarted(dialog): show the dialog modal over its owner (the dialog's
//   Window::visible is already true).
// - waitForInput(dialog): block until at least one user input was turned into engine
//   calls, or a message was posted (messagePosted), then return true; the engine then
//   delivers posted messages and checks whether the dialog ended. Return false when
//   no input can ever come: the engine ends the dialog with IDCANCEL.
// - modalLoopEnded(dialog): the dialog ended (DialogState::result holds the result);
//   it is destroyed right after.
// - pumpPendingInput(busy): do not block; handle input already waiting (the abort
//   button of the progress indicator `busy`, expired notices). Called by progress
//   updates and checks, where the caller's work loop runs.
//
// Prompts that are modal on their own return the user's answer (see prompts.h).
#pragma once

#include "platform/window/prompts.h"
#include "tabra_base.h"
#include "tabra_window.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tabra::window {

// What changed in a window. Entry changes name the entry's index.
enum class Change {
    Text,           // caption, control text, an editable combo's edit text, a progress line
    Enabled,
    Visible,
    Style,          // read-only, password, text limit, button type / default, list view extended style
    Check,          // a button's check state
    Focus,          // the window got the focus of its dialog
    EntryInserted,  // list box / combo box entry, list view item or tab inserted at index
    EntryRemoved,   // removed from index
    EntryChanged,   // text, sub-item or data of entry index changed
    EntriesCleared, // all entries removed
    Selection,      // selection, current entry or list view item state changed (index or -1)
    Columns,        // list view columns changed
    Range,          // progress range
    Position,       // progress position (also the aborted flag of an indicator)
    Geometry,       // centring requested
    DefaultButton,  // the dialog's default button changed
};

const char *changeName(Change change);

class Renderer {
public:
    virtual ~Renderer() = default;
    virtual const char *name() const = 0;

    // Mirroring the window tree.
    virtual void windowCreated(HWND root) = 0;
    virtual void windowChanged(HWND window, Change change, int32_t index) = 0;
    virtual void windowDestroying(HWND root) = 0;

    // Modal loops.
    virtual void modalLoopStarted(HWND dialog) = 0;
    virtual bool waitForInput(HWND dialog) = 0;
    virtual void modalLoopEnded(HWND dialog) = 0;
    virtual void messagePosted() {}
    virtual void pumpPendingInput(HWND busy) = 0;

    // Prompts, each modal.
    virtual int32_t messageBox(const MessageBoxPrompt &prompt) = 0;        // IDOK, IDYES, ...
    virtual int32_t popupMenu(const MenuPrompt &prompt) = 0;               // command, 0 when dismissed
    virtual std::optional<std::u16string> fileName(const FileNamePrompt &prompt) = 0; // nullopt: cancelled

    // The pointer's position on the screen (screen pixels), or nullopt when the
    // renderer has no screen.
    virtual std::optional<POINT> pointerPosition() { return std::nullopt; }

    // Feedback.
    virtual void beep(uint32_t type) = 0;
    virtual void cursorChanged(int32_t cursorId) = 0;
    virtual void helpRequested(HMODULE module, int32_t topic) = 0;
    // The engine had to stop a modal loop on its own (for example posted messages that
    // never end); the text says why.
    virtual void engineProblem(const std::string &description) = 0;
};

} // namespace tabra::window
