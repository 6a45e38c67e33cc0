// The exported Win32-style window calls. Each looks its handle up first, so a stale
// or foreign handle gives the call's failure value and never reaches freed memory.
#include "tabra_window.h"

#include "platform/text/bounded_text.h"
#include "platform/window/dialog_creation.h"
#include "platform/window/focus.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/modal_loop.h"
#include "platform/window/window_lifetime.h"
#include "platform/window/window_registry.h"

#include <charconv>
#include <string>

using namespace tabra::window;

namespace {

HWND childById(HWND dialog, int32_t controlId) {
    auto window = findWindow(dialog);
    if (!window) return nullptr;
    for (HWND child : window->children) {
        auto control = findWindow(child);
        if (control && control->id == controlId) return child;
    }
    return nullptr;
}

bool visibleChain(HWND handle) {
    for (auto window = findWindow(handle); window; window = findWindow(window->parent))
        if (!window->visible) return false;
    return findWindow(handle) != nullptr;
}

// Walks descendants depth first; false when the callback stopped the walk.
bool walkChildren(const Window &parent, WNDENUMPROC callback, LPARAM parameter) {
    std::vector<HWND> children = parent.children; // the callback may change the tree
    for (HWND child : children) {
        auto control = findWindow(child);
        if (!control) continue;
        if (!callback(child, parameter)) return false;
        if (!walkChildren(*control, callback, parameter)) return false;
    }
    return true;
}

HWND sibling(const Window &window, int offset, bool toEnd) {
    auto parent = findWindow(window.parent);
    if (!parent) return nullptr;
    const auto &siblings = parent->children;
    if (toEnd) return offset < 0 ? siblings.front() : siblings.back();
    for (std::size_t i = 0; i < siblings.size(); ++i) {
        if (siblings[i] != window.handle) continue;
        auto next = static_cast<std::ptrdiff_t>(i) + offset;
        if (next < 0 || next >= static_cast<std::ptrdiff_t>(siblings.size())) return nullptr;
        return siblings[static_cast<std::size_t>(next)];
    }
    return nullptr;
}

} // namespace

extern "C" {

INT_PTR DialogBoxParamW(HMODULE module, int32_t templateId, HWND owner, DLGPROC procedure, LPARAM parameter) {
    return runModalDialog(module, templateId, owner, procedure, parameter);
}

HWND CreateDialogParamW(HMODULE module, int32_t templateId, HWND parent, DLGPROC procedure, LPARAM parameter) {
    HWND dialog = createDialog(module, templateId, parent, procedure, parameter, false);
    return findWindow(dialog) ? dialog : nullptr;
}

int32_t EndDialog(HWND dialog, INT_PTR result) { return endDialog(dialog, result) ? 1 : 0; }

int32_t DestroyWindow(HWND window) { return destroyWindow(window) ? 1 : 0; }

LRESULT SendMessageW(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return sendMessage(window, message, wParam, lParam);
}

int32_t PostMessageW(HWND window, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return postMessage(window, message, wParam, lParam) ? 1 : 0;
}

LRESULT SendDlgItemMessageW(HWND dialog, int32_t controlId, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return sendMessage(childById(dialog, controlId), message, wParam, lParam);
}

int32_t GetWmCommandId(WPARAM wParam) { return LOWORD(wParam); }

int32_t GetWmCommandNotif(WPARAM wParam) { return static_cast<int16_t>(HIWORD(wParam)); }

int32_t PostWmCommand(HWND dialog, int32_t controlId, int32_t notification) {
    return PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(controlId, notification),
                        reinterpret_cast<LPARAM>(childById(dialog, controlId)));
}

HWND GetDlgItem(HWND dialog, int32_t controlId) { return childById(dialog, controlId); }

int32_t GetDlgCtrlID(HWND control) {
    auto window = findWindow(control);
    return window ? window->id : 0;
}

HWND GetParent(HWND handle) {
    auto window = findWindow(handle);
    if (!window) return nullptr;
    if (window->parent) return window->parent;
    // A top-level dialog answers its owner, as Win32 does for popup windows.
    const auto *dialog = window->as<DialogState>();
    return dialog && findWindow(dialog->owner) ? dialog->owner : nullptr;
}

HWND GetWindow(HWND handle, uint32_t relation) {
    auto window = findWindow(handle);
    if (!window) return nullptr;
    switch (relation) {
    case GW_CHILD: return window->children.empty() ? nullptr : window->children.front();
    case GW_HWNDNEXT: return sibling(*window, 1, false);
    case GW_HWNDPREV: return sibling(*window, -1, false);
    case GW_HWNDFIRST: return window->parent ? sibling(*window, -1, true) : handle;
    case GW_HWNDLAST: return window->parent ? sibling(*window, 1, true) : handle;
    case GW_OWNER: {
        const auto *dialog = window->as<DialogState>();
        return dialog && findWindow(dialog->owner) ? dialog->owner : nullptr;
    }
    default: return nullptr;
    }
}

int32_t EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM parameter) {
    auto window = findWindow(parent);
    if (!window || !callback) return 0;
    walkChildren(*window, callback, parameter);
    return 1;
}

int32_t IsWindow(HWND window) { return findWindow(window) ? 1 : 0; }

int32_t SetWindowTextW(HWND window, const char16_t *text) {
    if (!findWindow(window)) return 0;
    return sendMessage(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : u"")) != CB_ERR ? 1 : 0;
}

int32_t GetWindowTextW(HWND window, char16_t *buffer, int32_t capacity) {
    if (!buffer || capacity < 1) return 0;
    buffer[0] = 0;
    if (!findWindow(window)) return 0;
    return static_cast<int32_t>(sendMessage(window, WM_GETTEXT, static_cast<WPARAM>(capacity), reinterpret_cast<LPARAM>(buffer)));
}

int32_t GetWindowTextLengthW(HWND window) { return static_cast<int32_t>(sendMessage(window, WM_GETTEXTLENGTH, 0, 0)); }

int32_t SetDlgItemTextW(HWND dialog, int32_t controlId, const char16_t *text) {
    return SetWindowTextW(childById(dialog, controlId), text);
}

int32_t GetDlgItemTextW(HWND dialog, int32_t controlId, char16_t *buffer, int32_t capacity) {
    return GetWindowTextW(childById(dialog, controlId), buffer, capacity);
}

int32_t SetDlgItemInt(HWND dialog, int32_t controlId, uint32_t value, int32_t isSigned) {
    std::string digits = isSigned ? std::to_string(static_cast<int32_t>(value)) : std::to_string(value);
    return SetDlgItemTextW(dialog, controlId, std::u16string(digits.begin(), digits.end()).c_str());
}

uint32_t GetDlgItemInt(HWND dialog, int32_t controlId, int32_t *translated, int32_t isSigned) {
    if (translated) *translated = 0;
    HWND control = childById(dialog, controlId);
    auto window = findWindow(control);
    if (!window) return 0;
    // Leading and trailing blanks are allowed, as in Win32; anything else must be digits.
    std::string text;
    for (char16_t c : window->text) {
        if (c > 127) return 0;
        text.push_back(static_cast<char>(c));
    }
    auto first = text.find_first_not_of(' ');
    auto last = text.find_last_not_of(' ');
    if (first == std::string::npos) return 0;
    const char *begin = text.data() + first;
    const char *end = text.data() + last + 1;
    if (*begin == '+') ++begin;
    int64_t value = 0;
    auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stop != end) return 0;
    if (isSigned ? (value < INT32_MIN || value > INT32_MAX) : (value < 0 || value > UINT32_MAX)) return 0;
    if (translated) *translated = 1;
    return static_cast<uint32_t>(value);
}

int32_t CheckDlgButton(HWND dialog, int32_t controlId, uint32_t state) {
    HWND button = childById(dialog, controlId);
    if (!button) return 0;
    sendMessage(button, BM_SETCHECK, state, 0);
    return 1;
}

uint32_t IsDlgButtonChecked(HWND dialog, int32_t controlId) {
    return static_cast<uint32_t>(sendMessage(childById(dialog, controlId), BM_GETCHECK, 0, 0));
}

int32_t CheckRadioButton(HWND dialog, int32_t firstId, int32_t lastId, int32_t checkId) {
    auto window = findWindow(dialog);
    if (!window) return 0;
    for (HWND child : window->children) {
        auto control = findWindow(child);
        if (!control || control->kind != WindowKind::Button || control->id < firstId || control->id > lastId) continue;
        sendMessage(child, BM_SETCHECK, control->id == checkId ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    return 1;
}

int32_t EnableWindow(HWND handle, int32_t enable) {
    auto window = findWindow(handle);
    if (!window) return 0;
    bool wasDisabled = !window->enabled;
    if (window->enabled != (enable != 0)) {
        window->enabled = enable != 0;
        announce(*window, Change::Enabled);
    }
    return wasDisabled ? 1 : 0;
}

int32_t IsWindowEnabled(HWND handle) {
    auto window = findWindow(handle);
    return window && window->enabled ? 1 : 0;
}

int32_t ShowWindow(HWND handle, int32_t command) {
    auto window = findWindow(handle);
    if (!window) return 0;
    bool wasVisible = window->visible;
    bool show = command != SW_HIDE;
    if (wasVisible != show) {
        window->visible = show;
        announce(*window, Change::Visible);
    }
    return wasVisible ? 1 : 0;
}

int32_t IsWindowVisible(HWND window) { return visibleChain(window) ? 1 : 0; }

HWND SetFocus(HWND window) { return setFocus(window); }

HWND GetFocus(void) { return focusedWindow(); }

HWND GetActiveWindow(void) { return activeDialog(); }

LONG_PTR SetWindowLongPtrW(HWND handle, int32_t index, LONG_PTR value) {
    auto window = findWindow(handle);
    if (!window) return 0;
    LONG_PTR previous = 0;
    auto *dialog = window->as<DialogState>();
    switch (index) {
    case GWLP_USERDATA:
        previous = window->userData;
        window->userData = value;
        return previous;
    case GWLP_ID:
        previous = window->id;
        window->id = static_cast<int32_t>(value);
        return previous;
    case GWL_STYLE:
        previous = window->style;
        window->style = static_cast<uint32_t>(value);
        announce(*window, Change::Style);
        return previous;
    case GWL_EXSTYLE:
        previous = window->extendedStyle;
        window->extendedStyle = static_cast<uint32_t>(value);
        return previous;
    case DWLP_MSGRESULT:
        if (!dialog) return 0;
        previous = dialog->messageResult;
        dialog->messageResult = value;
        return previous;
    case DWLP_DLGPROC:
        if (!dialog) return 0;
        previous = reinterpret_cast<LONG_PTR>(dialog->procedure);
        dialog->procedure = reinterpret_cast<DLGPROC>(value);
        return previous;
    case DWLP_USER:
        if (!dialog) return 0;
        previous = dialog->user;
        dialog->user = value;
        return previous;
    default:
        return 0;
    }
}

LONG_PTR GetWindowLongPtrW(HWND handle, int32_t index) {
    auto window = findWindow(handle);
    if (!window) return 0;
    const auto *dialog = window->as<DialogState>();
    switch (index) {
    case GWLP_USERDATA: return window->userData;
    case GWLP_ID: return window->id;
    case GWL_STYLE: return window->style;
    case GWL_EXSTYLE: return window->extendedStyle;
    case GWLP_HWNDPARENT: return reinterpret_cast<LONG_PTR>(GetParent(handle));
    case DWLP_MSGRESULT: return dialog ? dialog->messageResult : 0;
    case DWLP_DLGPROC: return dialog ? reinterpret_cast<LONG_PTR>(dialog->procedure) : 0;
    case DWLP_USER: return dialog ? dialog->user : 0;
    default: return 0;
    }
}

LONG_PTR SetWindowLongW(HWND window, int32_t index, LONG_PTR value) { return SetWindowLongPtrW(window, index, value); }

LONG_PTR GetWindowLongW(HWND window, int32_t index) { return GetWindowLongPtrW(window, index); }

} // extern "C"
