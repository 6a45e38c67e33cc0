// The GTK renderer: shows the engine's windows with GTK 3 and turns the user's input
// into engine calls (see platform/window/renderer.h for the contract). It is chosen by
// renderer_selection.h when a display can be opened; createGtkRenderer (declared
// there) makes it.
//
// Its parts: the GTK session (gtk_session.h), dialog units (dialog_units.h), the
// widgets per control kind (widget_factory.h) kept per window (widget_tree.h), engine
// -> widget mirroring (state_sync.h), widget -> engine input (widget_input.h), modal
// waits (input_frames.h), and the prompts and windows of their own: message boxes,
// file chooser, popup menu, notice and progress window. Tests drive it through
// gtk_automation.h.
#pragma once

#include "platform/gtk/input_frames.h"
#include "platform/gtk/notice_popup.h"
#include "platform/gtk/progress_window.h"
#include "platform/gtk/widget_input.h"
#include "platform/gtk/widget_tree.h"
#include "platform/window/renderer.h"

#include <chrono>
#include <map>
#include <memory>
#include <vector>

namespace tabra::gtk {

class GtkRenderer : public window::Renderer, public InputGate {
public:
    GtkRenderer();
    ~GtkRenderer() override;

    const char *name() const override { return "gtk"; }
    void windowCreated(HWND root) override;
    void windowChanged(HWND window, window::Change change, int32_t index) override;
    void windowDestroying(HWND root) override;
    void modalLoopStarted(HWND dialog) override;
    bool waitForInput(HWND dialog) override;
    void modalLoopEnded(HWND dialog) override;
    void messagePosted() override;
    void pumpPendingInput(HWND busy) override;
    int32_t messageBox(const window::MessageBoxPrompt &prompt) override;
    int32_t popupMenu(const window::MenuPrompt &prompt) override;
    std::optional<std::u16string> fileName(const window::FileNamePrompt &prompt) override;
    std::optional<POINT> pointerPosition() override;
    void beep(uint32_t type) override;
    void cursorChanged(int32_t cursorId) override;
    void helpRequested(HMODULE module, int32_t topic) override;
    void engineProblem(const std::string &description) override;

    bool mirroring() const override { return mirroring_ > 0; }
    void deliver(HWND window, const std::function<window::input::Refusal()> &input) override;

    // For the automation hook: the widget showing a window, the Abort button of a
    // progress window.
    GtkWidget *widgetOf(HWND window);
    GtkWidget *abortButtonOf(HWND indicator);

    // The renderer of this process, once made (null before and without a display).
    static GtkRenderer *instance();

private:
    class Mirroring;

    void resync(HWND window);
    void centre(HWND dialog);
    void applyCursor(GtkWidget *window);
    // The window prompts and progress windows go over: the owner's window, else the
    // innermost modal one.
    GtkWindow *parentFor(HWND owner);
    std::optional<std::chrono::steady_clock::time_point> nextNoticeExpiry() const;

    WidgetTree tree_;
    InputFrames frames_;
    std::map<HWND, std::unique_ptr<ProgressWindow>> progress_;
    std::map<HWND, std::unique_ptr<NoticePopup>> notices_;
    std::vector<GtkWidget *> modalWindows_; // modal dialogs on screen, innermost last
    int mirroring_ = 0;
    int32_t cursor_ = 0;
    std::chrono::steady_clock::time_point lastPump_{};
};

} // namespace tabra::gtk
