// Lists whose entries the user may drag and drop (the gesture itself is the
// renderer's; user_input.h delivers the drop).
#include "ostrel_ui.h"

#include "platform/window/message_dispatch.h"
#include "platform/window/window_registry.h"

using namespace tabra::window;

extern "C" int32_t Ostrel_SetListDragDrop(HWND list, uint32_t flags) {
    auto window = findWindow(list);
    if (!window || (window->kind != WindowKind::ListBox && window->kind != WindowKind::ListView)) return 0;
    flags &= OSTREL_DRAG_SOURCE | OSTREL_DROP_TARGET;
    if (window->dragFlags == flags) return 1;
    window->dragFlags = flags;
    announce(*window, Change::Style);
    return 1;
}
