// The pointer position.
#include "platform/window/pointer_position.h"

#include "platform/window/renderer_selection.h"
#include "platform/window/window_registry.h"

namespace tabra::window {
namespace {

POINT &headlessPointer() {
    static POINT pointer{0, 0};
    return pointer;
}

} // namespace

void movePointerTo(HWND handle) {
    auto control = findWindow(handle);
    if (!control) return;
    POINT centre{control->frame.x + control->frame.width / 2, control->frame.y + control->frame.height / 2};
    // Pages lie at their own place in the control or dialog that holds them.
    for (auto at = findWindow(control->parent); at && at->parent; at = findWindow(at->parent)) {
        centre.x += at->frame.x;
        centre.y += at->frame.y;
    }
    headlessPointer() = centre;
}

POINT pointerPosition() {
    if (auto shown = activeRenderer().pointerPosition()) return *shown;
    return headlessPointer();
}

} // namespace tabra::window
