// The window object model: every dialog, control, notice and progress window is a
// Window behind an opaque, never reused HWND (see window_registry.h). A window has an
// identifier, text, styles, enabled and visible flags, a parent, its children in
// creation order, a user-data slot, its size in dialog units, and the state of its
// kind (one of the control state records).
#pragma once

#include "platform/window/button_control.h"
#include "platform/window/combo_box_control.h"
#include "platform/window/dialog_state.h"
#include "platform/window/edit_control.h"
#include "platform/window/list_box_control.h"
#include "platform/window/list_view_control.h"
#include "platform/window/notice_window.h"
#include "platform/window/progress_bar_control.h"
#include "platform/window/progress_indicator.h"
#include "platform/window/tab_control.h"
#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tabra::window {

enum class WindowKind {
    Dialog,            // a modal or modeless dialog, or a page of a tab control or wizard
    Static,            // static text
    Picture,           // static icon or bitmap
    Button,            // push, default push, check box, radio button, group box (BS_* type)
    Edit,
    ListBox,
    ComboBox,
    ListView,
    TabControl,
    ProgressBar,
    Notice,            // the short-lived notice window
    ProgressIndicator, // the progress window with its abort button
};

const char *kindName(WindowKind kind);

// Position and size in dialog units, as the template gave them.
struct Frame {
    int32_t x = 0, y = 0, width = 0, height = 0;
};

using WindowState = std::variant<std::monostate, DialogState, ButtonState, EditState, ListBoxState, ComboBoxState,
                                 ListViewState, TabState, ProgressBarState, NoticeState, ProgressIndicatorState>;

struct Window {
    HWND handle = nullptr;
    WindowKind kind = WindowKind::Static;
    int32_t id = -1;
    std::u16string text; // caption, control text, or an editable combo's edit text
    uint32_t style = 0;
    uint32_t extendedStyle = 0;
    bool enabled = true;
    bool visible = false;
    HWND parent = nullptr; // null for top-level windows
    std::vector<HWND> children;
    Frame frame;
    LONG_PTR userData = 0;   // GWLP_USERDATA
    uint32_t dragFlags = 0;  // OSTREL_DRAG_SOURCE, OSTREL_DROP_TARGET (list boxes and list views)
    bool destroyed = false;  // set once DestroyWindow ran; the handle is stale from then on
    bool announced = false;  // the renderer knows this window (windowCreated was called for its tree)
    WindowState state;

    template <class T> T *as() { return std::get_if<T>(&state); }
    template <class T> const T *as() const { return std::get_if<T>(&state); }
};

} // namespace tabra::window
