// Progress indicators: a modeless window the caller's work loop moves on. Every
// update and check lets the renderer handle input that is waiting, so the abort
// button answers while the work runs.
#include "platform/window/progress_indicator.h"

#include "ostrel_ui.h"
#include "platform/window/dialog_creation.h"
#include "platform/window/focus.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_lifetime.h"
#include "platform/window/window_registry.h"

#include <algorithm>

using namespace tabra::window;

namespace {

WindowPtr indicator(HWND handle) {
    auto window = findWindow(handle);
    return window && window->kind == WindowKind::ProgressIndicator ? window : nullptr;
}

} // namespace

extern "C" {

HWND Ostrel_CreateProgressIndicatorExtended(HWND owner, const char16_t *title, const char16_t *text, int32_t minimum,
                                            int32_t maximum, uint32_t flags) {
    auto window = std::make_shared<Window>();
    window->kind = WindowKind::ProgressIndicator;
    window->text = title ? title : u"";
    window->visible = true;
    ProgressIndicatorState state;
    state.owner = findWindow(owner) ? owner : activeDialog();
    state.line = text ? text : u"";
    state.minimum = minimum;
    state.maximum = std::max(minimum, maximum);
    state.position = minimum;
    state.abortable = (flags & OSTREL_PROGRESS_NO_ABORT) == 0;
    window->state = std::move(state);
    HWND handle = registerWindow(window);
    announceTree(handle);
    activeRenderer().pumpPendingInput(handle);
    return handle;
}

HWND Ostrel_CreateProgressIndicator(HWND owner, const char16_t *title, int32_t minimum, int32_t maximum) {
    return Ostrel_CreateProgressIndicatorExtended(owner, title, nullptr, minimum, maximum, 0);
}

int32_t Ostrel_SetProgressIndicatorText(HWND handle, const char16_t *text) {
    auto window = indicator(handle);
    if (!window) return 0;
    window->as<ProgressIndicatorState>()->line = text ? text : u"";
    announce(*window, Change::Text);
    activeRenderer().pumpPendingInput(handle);
    return 1;
}

int32_t Ostrel_UpdateProgressIndicator(HWND handle, int32_t value) {
    auto window = indicator(handle);
    if (!window) return 0;
    auto *state = window->as<ProgressIndicatorState>();
    state->position = std::clamp(value, state->minimum, state->maximum);
    announce(*window, Change::Position);
    expireNotices();
    activeRenderer().pumpPendingInput(handle);
    return 1;
}

int32_t Ostrel_CheckProgressIndicatorAborted(HWND handle) {
    if (!indicator(handle)) return 0;
    activeRenderer().pumpPendingInput(handle);
    auto window = indicator(handle); // the renderer may have let it go meanwhile
    return window && window->as<ProgressIndicatorState>()->aborted ? 1 : 0;
}

int32_t Ostrel_DestroyProgressIndicator(HWND handle) {
    if (!indicator(handle)) return 0;
    return destroyWindow(handle) ? 1 : 0;
}

} // extern "C"
