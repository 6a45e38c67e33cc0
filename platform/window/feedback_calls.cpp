// The small feedback calls: beeps, the cursor, help topics and centring a window.
#include "ostrel_ui.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/pointer_position.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_registry.h"

using namespace tabra::window;

namespace {

HCURSOR currentCursor = nullptr;

bool isStandardCursor(int32_t id) { return id >= 32512 && id <= 32651; }

} // namespace

extern "C" {

int32_t MessageBeep(uint32_t type) {
    activeRenderer().beep(type);
    return 1;
}

HCURSOR LoadCursorW(HINSTANCE module, int32_t cursorId) {
    if (module || !isStandardCursor(cursorId)) return nullptr;
    return reinterpret_cast<HCURSOR>(static_cast<uintptr_t>(cursorId));
}

HCURSOR SetCursor(HCURSOR cursor) {
    HCURSOR previous = currentCursor;
    currentCursor = cursor;
    if (cursor != previous) activeRenderer().cursorChanged(static_cast<int32_t>(reinterpret_cast<uintptr_t>(cursor)));
    return previous;
}

int32_t GetCursorPos(POINT *point) {
    if (!point) return 0;
    *point = pointerPosition();
    return 1;
}

int32_t Ostrel_PerformHelp(HMODULE module, int32_t topic, uint32_t flags) {
    activeRenderer().helpRequested(module, topic);
    return 1;
}

int32_t Ostrel_CenterWindow(HWND handle, HWND reference) {
    auto window = findWindow(handle);
    if (!window) return 0;
    if (auto *dialog = window->as<DialogState>()) {
        dialog->centered = true;
        dialog->centerReference = findWindow(reference) ? reference : nullptr;
    }
    announce(*window, Change::Geometry);
    return 1;
}

} // extern "C"
