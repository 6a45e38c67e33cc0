// Message dispatch. A dialog's procedure sees its messages first, as the Win32 dialog
// manager arranges; controls handle their own messages by kind; what neither handles
// falls to the common handling of text.
#include "platform/window/message_dispatch.h"

#include "platform/text/bounded_text.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_registry.h"

#include <deque>

namespace tabra::window {
namespace {

struct PostedMessage {
    HWND window;
    uint32_t message;
    WPARAM wParam;
    LPARAM lParam;
};

std::deque<PostedMessage> &postedQueue() {
    static auto *queue = new std::deque<PostedMessage>;
    return *queue;
}

// Text messages every window understands.
bool commonMessage(Window &window, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    switch (message) {
    case WM_SETTEXT:
        window.text = textFromParameter(lParam);
        announce(window, Change::Text);
        result = 1;
        return true;
    case WM_GETTEXT:
        result = copyTextOut(window.text, reinterpret_cast<char16_t *>(lParam), static_cast<int32_t>(wParam));
        return true;
    case WM_GETTEXTLENGTH:
        result = static_cast<LRESULT>(window.text.size());
        return true;
    default:
        return false;
    }
}

// Messages whose dialog-procedure answer is the result itself, not DWLP_MSGRESULT.
bool answersDirectly(uint32_t message) { return message == WM_INITDIALOG; }

LRESULT dialogMessage(const WindowPtr &dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    auto *state = dialog->as<DialogState>();
    if (state->procedure) {
        state->messageResult = 0;
        INT_PTR answer = state->procedure(dialog->handle, message, wParam, lParam);
        if (answer != 0) return answersDirectly(message) ? answer : dialog->as<DialogState>()->messageResult;
    }
    if (dialog->destroyed) return 0;
    LRESULT result = 0;
    switch (message) {
    case WM_CLOSE: {
        // The close box acts as the Cancel button.
        HWND cancel = nullptr;
        for (HWND child : dialog->children) {
            auto control = findWindow(child);
            if (control && control->id == IDCANCEL) cancel = child;
        }
        sendMessage(dialog->handle, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(cancel));
        return 0;
    }
    case DM_GETDEFID:
        return MAKELRESULT(state->defaultId, DC_HASDEFID);
    case DM_SETDEFID:
        state->defaultId = static_cast<int32_t>(wParam);
        announce(*dialog, Change::DefaultButton);
        return 1;
    default:
        if (commonMessage(*dialog, message, wParam, lParam, result)) return result;
        return 0;
    }
}

bool controlMessage(Window &window, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    switch (window.kind) {
    case WindowKind::Edit: return editMessage(window, message, wParam, lParam, result);
    case WindowKind::Button: return buttonMessage(window, message, wParam, lParam, result);
    case WindowKind::ListBox: return listBoxMessage(window, message, wParam, lParam, result);
    case WindowKind::ComboBox: return comboBoxMessage(window, message, wParam, lParam, result);
    case WindowKind::ListView: return listViewMessage(window, message, wParam, lParam, result);
    case WindowKind::TabControl: return tabControlMessage(window, message, wParam, lParam, result);
    case WindowKind::ProgressBar: return progressBarMessage(window, message, wParam, lParam, result);
    default: return false;
    }
}

} // namespace

LRESULT sendMessage(HWND handle, uint32_t message, WPARAM wParam, LPARAM lParam) {
    WindowPtr window = findWindow(handle); // keeps the window alive during the call
    if (!window) return 0;
    if (window->kind == WindowKind::Dialog) return dialogMessage(window, message, wParam, lParam);
    LRESULT result = 0;
    if (controlMessage(*window, message, wParam, lParam, result)) return result;
    if (commonMessage(*window, message, wParam, lParam, result)) return result;
    return 0;
}

bool postMessage(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam) {
    if (!findWindow(window)) return false;
    postedQueue().push_back({window, message, wParam, lParam});
    activeRenderer().messagePosted();
    return true;
}

bool deliverPostedMessage() {
    auto &queue = postedQueue();
    if (queue.empty()) return false;
    PostedMessage posted = queue.front();
    queue.pop_front();
    sendMessage(posted.window, posted.message, posted.wParam, posted.lParam);
    return true;
}

void discardPostedMessages() { postedQueue().clear(); }

void sendCommandToParent(const Window &control, int32_t notification) {
    if (!control.parent) return;
    sendMessage(control.parent, WM_COMMAND, MAKEWPARAM(control.id, notification),
                reinterpret_cast<LPARAM>(control.handle));
}

LRESULT sendNotifyToParent(const Window &control, NMHDR &header) {
    header.hwndFrom = control.handle;
    header.idFrom = static_cast<uintptr_t>(static_cast<uint32_t>(control.id));
    if (!control.parent) return 0;
    return sendMessage(control.parent, WM_NOTIFY, static_cast<WPARAM>(static_cast<uint32_t>(control.id)),
                       reinterpret_cast<LPARAM>(&header));
}

void announce(const Window &window, Change change, int32_t index) {
    if (window.announced && !window.destroyed) activeRenderer().windowChanged(window.handle, change, index);
}

std::u16string textFromParameter(LPARAM text) {
    const auto *chars = reinterpret_cast<const char16_t *>(text);
    return chars ? std::u16string(chars) : std::u16string();
}

int32_t copyTextOut(std::u16string_view text, char16_t *buffer, int32_t capacity) {
    if (!buffer || capacity < 1) return 0;
    return platform::writeBounded(buffer, capacity, text);
}

} // namespace tabra::window
