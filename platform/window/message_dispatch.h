// Message dispatch: sending a message to a window (a dialog's procedure or a control's
// own handling), the queue of posted messages, the notifications controls send their
// dialog, and telling the renderer about changes.
#pragma once

#include "platform/window/renderer.h"
#include "platform/window/window_object.h"
#include "tabra_window.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::window {

LRESULT sendMessage(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam);

// Queues a message for the running modal loop; false for a stale handle.
bool postMessage(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam);
// Delivers the oldest queued message (dropped when its window is gone meanwhile).
// False when the queue is empty.
bool deliverPostedMessage();
// Forgets every queued message (the scripted driver starts a new run with none).
void discardPostedMessages();

// WM_COMMAND(id, notification, control) to the control's parent.
void sendCommandToParent(const Window &control, int32_t notification);
// WM_NOTIFY to the control's parent; fills the header's hwndFrom and idFrom.
LRESULT sendNotifyToParent(const Window &control, NMHDR &header);

// Tells the renderer about a change of an announced window.
void announce(const Window &window, Change change, int32_t index = -1);

// Text exchange with callers' buffers.
std::u16string textFromParameter(LPARAM text);
// Copies text into buffer as WM_GETTEXT does (at most capacity - 1 characters,
// terminated); returns the number copied, 0 for a null buffer or capacity < 1.
int32_t copyTextOut(std::u16string_view text, char16_t *buffer, int32_t capacity);

} // namespace tabra::window
