// Modal dialogs and their message loop.
#include "platform/window/modal_loop.h"

#include "platform/window/dialog_creation.h"
#include "platform/window/focus.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_lifetime.h"
#include "platform/window/window_registry.h"

#include <string>

namespace tabra::window {
namespace {

// Posted messages delivered one after the other without any input between them; a
// dialog that keeps posting to itself for this long would never let the user act.
constexpr int kPostedWithoutInputLimit = 1000000;

struct ModalEntry {
    explicit ModalEntry(HWND dialog) { modalDialogs().push_back(dialog); }
    ~ModalEntry() { modalDialogs().pop_back(); }
    ModalEntry(const ModalEntry &) = delete;
    ModalEntry &operator=(const ModalEntry &) = delete;
};

bool running(const Window &dialog) { return !dialog.destroyed && !dialog.as<DialogState>()->ended; }

} // namespace

void runModalLoop(HWND handle) {
    WindowPtr dialog = findWindow(handle);
    if (!dialog || !dialog->as<DialogState>()) return;
    Renderer &renderer = activeRenderer();
    int postedInARow = 0;
    while (running(*dialog)) {
        if (deliverPostedMessage()) {
            if (++postedInARow < kPostedWithoutInputLimit) continue;
            renderer.engineProblem("dialog " + std::to_string(dialog->as<DialogState>()->templateId) +
                                   " keeps posting messages without end; it was cancelled");
            endDialog(handle, IDCANCEL);
            break;
        }
        postedInARow = 0;
        expireNotices();
        if (!renderer.waitForInput(handle) && running(*dialog)) endDialog(handle, IDCANCEL);
    }
}

INT_PTR runModalDialog(HMODULE module, int32_t templateId, HWND owner, DLGPROC procedure, LPARAM parameter) {
    const platform::DialogTemplate *dialogTemplate = findDialogTemplate(module, templateId);
    if (!dialogTemplate) return -1;
    return runModalDialogFromTemplate(*dialogTemplate, module, templateId, owner, procedure, parameter);
}

INT_PTR runModalDialogFromTemplate(const platform::DialogTemplate &dialogTemplate, HMODULE module, int32_t templateId,
                                   HWND owner, DLGPROC procedure, LPARAM parameter) {
    expireNotices();
    HWND handle = createDialogFromTemplate(dialogTemplate, module, templateId, owner, procedure, parameter, true);
    WindowPtr dialog = findWindow(handle);
    if (!dialog) return handle ? 0 : -1; // destroyed while it was being created
    auto &state = *dialog->as<DialogState>();
    if (running(*dialog)) {
        // A dialog that ended during WM_INITDIALOG is never shown, as in Win32.
        ModalEntry entry(handle);
        dialog->visible = true;
        announceTree(handle);
        Renderer &renderer = activeRenderer();
        renderer.modalLoopStarted(handle);
        runModalLoop(handle);
        renderer.modalLoopEnded(handle);
    }
    INT_PTR result = state.result;
    destroyWindow(handle);
    return result;
}

} // namespace tabra::window
