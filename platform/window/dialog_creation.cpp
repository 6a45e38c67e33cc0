// Dialog creation from templates.
#include "platform/window/dialog_creation.h"

#include "platform/resources/resource_module.h"
#include "platform/window/focus.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_registry.h"

namespace tabra::window {
namespace {

using platform::ControlKind;
using platform::ControlTemplate;

// The button type a template's kind asks for, when the style does not already say one
// of the fitting types.
uint32_t normalisedButtonStyle(ControlKind kind, uint32_t style) {
    uint32_t type = style & BS_TYPEMASK;
    uint32_t wanted = type;
    switch (kind) {
    case ControlKind::PushButton:
        if (type != BS_PUSHBUTTON && type != BS_DEFPUSHBUTTON) wanted = BS_PUSHBUTTON;
        break;
    case ControlKind::CheckBox:
        if (type != BS_CHECKBOX && type != BS_AUTOCHECKBOX && type != BS_3STATE && type != BS_AUTO3STATE)
            wanted = BS_AUTOCHECKBOX;
        break;
    case ControlKind::RadioButton:
        if (type != BS_RADIOBUTTON && type != BS_AUTORADIOBUTTON) wanted = BS_AUTORADIOBUTTON;
        break;
    case ControlKind::GroupBox:
        wanted = BS_GROUPBOX;
        break;
    default:
        break;
    }
    return (style & ~BS_TYPEMASK) | wanted;
}

WindowPtr makeControl(const ControlTemplate &control, HWND dialog) {
    auto window = std::make_shared<Window>();
    window->id = control.id;
    window->text = control.text;
    window->style = control.style;
    window->extendedStyle = control.extendedStyle;
    window->frame = {control.x, control.y, control.width, control.height};
    window->enabled = (control.style & WS_DISABLED) == 0;
    window->visible = (control.style & WS_VISIBLE) != 0;
    window->parent = dialog;
    switch (control.kind) {
    case ControlKind::Static:
        window->kind = WindowKind::Static;
        break;
    case ControlKind::Picture:
        window->kind = WindowKind::Picture;
        break;
    case ControlKind::Edit:
        window->kind = WindowKind::Edit;
        window->state = EditState{};
        break;
    case ControlKind::PushButton:
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
    case ControlKind::GroupBox:
        window->kind = WindowKind::Button;
        window->style = normalisedButtonStyle(control.kind, control.style);
        window->state = ButtonState{};
        break;
    case ControlKind::ListBox:
        window->kind = WindowKind::ListBox;
        window->text.clear();
        window->state = ListBoxState{};
        break;
    case ControlKind::ComboBox:
        window->kind = WindowKind::ComboBox;
        if ((control.style & 0x3u) == CBS_DROPDOWNLIST) window->text.clear();
        window->state = ComboBoxState{};
        break;
    case ControlKind::ListView: {
        window->kind = WindowKind::ListView;
        ListViewState state;
        state.extendedStyle = control.extendedStyle;
        window->state = std::move(state);
        break;
    }
    case ControlKind::TabControl:
        window->kind = WindowKind::TabControl;
        window->state = TabState{};
        break;
    case ControlKind::Progress:
        window->kind = WindowKind::ProgressBar;
        window->state = ProgressBarState{};
        break;
    }
    return window;
}

void markAnnounced(Window &window) {
    window.announced = true;
    for (HWND child : window.children)
        if (auto control = findWindow(child)) markAnnounced(*control);
}

} // namespace

const platform::DialogTemplate *findDialogTemplate(HMODULE module, int32_t templateId) {
    const auto *tables = platform::resourceTablesOf(module);
    if (!tables) return nullptr;
    auto found = tables->dialogs.find(templateId);
    return found == tables->dialogs.end() ? nullptr : &found->second;
}

HWND createDialog(HMODULE module, int32_t templateId, HWND parent, DLGPROC procedure, LPARAM parameter, bool modal,
                  bool startHidden) {
    const platform::DialogTemplate *dialogTemplate = findDialogTemplate(module, templateId);
    if (!dialogTemplate) return nullptr;
    return createDialogFromTemplate(*dialogTemplate, module, templateId, parent, procedure, parameter, modal, startHidden);
}

HWND createDialogFromTemplate(const platform::DialogTemplate &dialogTemplate, HMODULE module, int32_t templateId, HWND parent,
                              DLGPROC procedure, LPARAM parameter, bool modal, bool startHidden) {
    WindowPtr parentWindow = modal ? nullptr : findWindow(parent);
    if (!modal && parent && !parentWindow) return nullptr; // a stale parent

    auto dialog = std::make_shared<Window>();
    dialog->kind = WindowKind::Dialog;
    dialog->id = 0;
    dialog->text = dialogTemplate.caption;
    dialog->style = dialogTemplate.style;
    dialog->frame = {dialogTemplate.x, dialogTemplate.y, dialogTemplate.width, dialogTemplate.height};
    dialog->enabled = (dialogTemplate.style & WS_DISABLED) == 0;
    dialog->visible = false;
    DialogState state;
    state.procedure = procedure;
    state.module = module;
    state.templateId = templateId;
    state.modal = modal;
    state.childPage = parentWindow != nullptr || dialogTemplate.childPage;
    state.owner = modal && findWindow(parent) ? parent : nullptr;
    state.fontName = dialogTemplate.fontName;
    state.fontSize = dialogTemplate.fontSize;
    dialog->state = std::move(state);
    HWND handle = registerWindow(dialog);
    if (parentWindow) {
        dialog->parent = parent;
        parentWindow->children.push_back(handle);
    }

    // The default button: the first BS_DEFPUSHBUTTON, else IDOK.
    for (const auto &control : dialogTemplate.controls) {
        WindowPtr window = makeControl(control, handle);
        dialog->children.push_back(registerWindow(window));
        auto &dialogState = *dialog->as<DialogState>();
        if (window->kind == WindowKind::Button && buttonType(*window) == BS_DEFPUSHBUTTON && !dialogState.defaultFromStyle) {
            dialogState.defaultId = control.id;
            dialogState.defaultFromStyle = true;
        }
    }

    bool topLevel = parentWindow == nullptr;
    HWND firstFocus = nullptr;
    for (HWND child : dialog->children) {
        auto control = findWindow(child);
        if (control && isTabStop(*control)) {
            firstFocus = child;
            break;
        }
    }
    LRESULT answer = sendMessage(handle, WM_INITDIALOG, reinterpret_cast<WPARAM>(firstFocus), parameter);
    if (dialog->destroyed) return handle;
    if (answer != 0 && firstFocus && topLevel && findWindow(firstFocus)) setFocus(firstFocus);
    if (!modal) {
        dialog->visible = !startHidden && (dialogTemplate.style & WS_VISIBLE) != 0;
        announceTree(handle);
    }
    return handle;
}

void announceTree(HWND root) {
    auto window = findWindow(root);
    if (!window || window->announced) return;
    if (window->parent) {
        auto parent = findWindow(window->parent);
        if (!parent || !parent->announced) return;
    }
    markAnnounced(*window);
    activeRenderer().windowCreated(root);
}

} // namespace tabra::window
