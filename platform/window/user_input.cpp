// User input turned into engine changes and notifications.
#include "platform/window/user_input.h"

#include "ostrel_ui.h"
#include "platform/text/case_folding.h"
#include "platform/window/focus.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/pointer_position.h"
#include "platform/window/window_lifetime.h"
#include "platform/window/window_registry.h"

#include <algorithm>

namespace tabra::window::input {
namespace {

std::string describe(const Window &window) {
    std::string text = kindName(window.kind);
    if (window.kind != WindowKind::Dialog) text += " " + std::to_string(window.id);
    return text;
}

Refusal wrongKind(const Window &window, const char *what) { return describe(window) + " cannot " + what; }

bool validIndex(std::size_t count, int32_t index) { return index >= 0 && static_cast<std::size_t>(index) < count; }

// The entries of a list box or the items of a list view.
std::size_t entryCount(const Window &list) {
    if (const auto *box = list.as<ListBoxState>()) return box->entries.size();
    if (const auto *view = list.as<ListViewState>()) return view->items.size();
    return 0;
}

Refusal noEntry(const Window &window, int32_t index) {
    return describe(window) + " has no entry " + std::to_string(index);
}

void pressDefaultButton(HWND root) {
    auto dialog = findWindow(root);
    if (!dialog || !dialog->as<DialogState>()) return;
    int32_t id = dialog->as<DialogState>()->defaultId;
    HWND button = nullptr;
    for (HWND child : dialog->children) {
        auto window = findWindow(child);
        if (window && window->id == id) button = child;
    }
    if (auto window = findWindow(button); window && !window->enabled) return; // a disabled default does nothing
    sendMessage(root, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

void selectListView(Window &view, const std::vector<int32_t> &indices) {
    // Deselect what is not wanted (taking its focus too when another item gets it),
    // then select the wanted ones; the last one has the focus.
    uint32_t clear = LVIS_SELECTED | (indices.empty() ? 0u : LVIS_FOCUSED);
    for (std::size_t i = 0; i < view.as<ListViewState>()->items.size(); ++i) {
        if (std::find(indices.begin(), indices.end(), static_cast<int32_t>(i)) != indices.end()) continue;
        if (view.as<ListViewState>()->items[i].state & clear) setListViewItemState(view, static_cast<int32_t>(i), 0, clear);
    }
    for (int32_t index : indices) {
        if (!validIndex(view.as<ListViewState>()->items.size(), index)) continue;
        uint32_t state = LVIS_SELECTED | (index == indices.back() ? LVIS_FOCUSED : 0u);
        setListViewItemState(view, index, state, state);
    }
}

void notifyListViewClick(const Window &view, int32_t code, int32_t index) {
    NMITEMACTIVATE info{};
    info.hdr.code = static_cast<uint32_t>(code);
    info.iItem = index;
    const auto *state = view.as<ListViewState>();
    if (state && validIndex(state->items.size(), index)) {
        const auto &item = state->items[static_cast<std::size_t>(index)];
        info.uNewState = item.state;
        info.uOldState = item.state;
        info.lParam = item.param;
    }
    sendNotifyToParent(view, info.hdr);
}

// The state of a top-level dialog, which takes the dialog keys; null for anything else.
const DialogState *keyTaker(HWND handle) {
    auto dialog = findWindow(handle);
    return dialog && !dialog->parent ? dialog->as<DialogState>() : nullptr;
}

Refusal noKeyTaker() { return std::string("no top-level dialog takes the key"); }

} // namespace

Refusal unreachable(HWND handle) {
    auto window = findWindow(handle);
    if (!window) return std::string("the window is gone");
    for (auto current = window; current; current = findWindow(current->parent)) {
        if (!current->enabled) return describe(*window) + " is disabled";
        if (!current->visible) return describe(*window) + " is hidden";
    }
    return std::nullopt;
}

Refusal click(HWND handle) {
    if (auto refused = unreachable(handle)) return refused;
    auto button = findWindow(handle);
    if (button->kind != WindowKind::Button || isGroupBox(*button)) return wrongKind(*button, "be clicked");
    movePointerTo(handle);
    setFocus(handle);
    clickButton(*button);
    return std::nullopt;
}

Refusal setChecked(HWND handle, bool checked) {
    if (auto refused = unreachable(handle)) return refused;
    auto button = findWindow(handle);
    if (button->kind != WindowKind::Button || !(isCheckBox(*button) || isRadioButton(*button)))
        return wrongKind(*button, "be checked");
    bool isChecked = button->as<ButtonState>()->check == BST_CHECKED;
    if (isChecked == checked) return std::nullopt;
    if (!checked && isRadioButton(*button)) return describe(*button) + " (a radio button) cannot be unchecked";
    return click(handle);
}

Refusal replaceText(HWND handle, const std::u16string &text) {
    if (auto refused = unreachable(handle)) return refused;
    auto control = findWindow(handle);
    if (control->kind == WindowKind::Edit) {
        if (isReadOnlyEdit(*control)) return describe(*control) + " is read-only";
        auto *state = control->as<EditState>();
        std::u16string value = text.substr(0, static_cast<std::size_t>(std::max(state->limit, 0)));
        if (control->style & ES_UPPERCASE)
            for (auto &c : value) c = platform::foldCase(c);
        setFocus(handle);
        control->text = std::move(value);
        state->selectionStart = state->selectionEnd = static_cast<int32_t>(control->text.size());
        state->modified = true;
        announce(*control, Change::Text);
        sendCommandToParent(*control, EN_UPDATE);
        sendCommandToParent(*control, EN_CHANGE);
        return std::nullopt;
    }
    if (control->kind == WindowKind::ComboBox) {
        auto *state = control->as<ComboBoxState>();
        if (isDropDownList(*control)) {
            int32_t index = findListEntry(state->entries, text, -1, true);
            if (index < 0) return describe(*control) + " has no entry \"" + std::string(text.begin(), text.end()) + "\"";
            return selectEntries(handle, {index});
        }
        setFocus(handle);
        control->text = text.substr(0, static_cast<std::size_t>(std::max(state->limit, 0)));
        state->current = -1;
        state->selectionStart = state->selectionEnd = static_cast<int32_t>(control->text.size());
        announce(*control, Change::Text);
        sendCommandToParent(*control, CBN_EDITUPDATE);
        sendCommandToParent(*control, CBN_EDITCHANGE);
        return std::nullopt;
    }
    return wrongKind(*control, "take text");
}

Refusal typeText(HWND handle, const std::u16string &text) {
    if (auto refused = unreachable(handle)) return refused;
    auto control = findWindow(handle);
    bool edit = control->kind == WindowKind::Edit;
    bool combo = control->kind == WindowKind::ComboBox && !isDropDownList(*control);
    if (!edit && !combo) return wrongKind(*control, "take typed text");
    if (edit && isReadOnlyEdit(*control)) return describe(*control) + " is read-only";
    setFocus(handle);
    if (edit) placeCaretAtEnd(*control);
    else {
        auto *state = control->as<ComboBoxState>();
        state->selectionStart = state->selectionEnd = static_cast<int32_t>(control->text.size());
    }
    for (char16_t c : text) {
        if (!findWindow(handle)) break; // a dialog procedure may close the dialog meanwhile
        if ((c == u'\n' || c == u'\r') && !(edit && isMultiLineEdit(*control))) {
            pressDefaultButton(topLevelOf(handle));
            continue;
        }
        sendMessage(handle, WM_CHAR, c, 1);
    }
    return std::nullopt;
}

Refusal selectEntries(HWND handle, const std::vector<int32_t> &indices) {
    if (auto refused = unreachable(handle)) return refused;
    auto control = findWindow(handle);
    switch (control->kind) {
    case WindowKind::ListBox: {
        const auto &entries = control->as<ListBoxState>()->entries;
        if (!isMultipleSelectionList(*control) && indices.size() != 1)
            return describe(*control) + " takes exactly one selected entry";
        for (int32_t index : indices)
            if (!validIndex(entries.size(), index)) return noEntry(*control, index);
        setFocus(handle);
        setListSelection(*control, indices);
        sendCommandToParent(*control, LBN_SELCHANGE);
        return std::nullopt;
    }
    case WindowKind::ComboBox:
        if (indices.size() != 1) return describe(*control) + " takes exactly one selected entry";
        if (!validIndex(control->as<ComboBoxState>()->entries.size(), indices.front()))
            return noEntry(*control, indices.front());
        setFocus(handle);
        setComboSelection(*control, indices.front());
        sendCommandToParent(*control, CBN_SELCHANGE);
        return std::nullopt;
    case WindowKind::ListView:
        if (isSingleSelectionListView(*control) && indices.size() > 1)
            return describe(*control) + " takes one selected item at most";
        for (int32_t index : indices)
            if (!validIndex(control->as<ListViewState>()->items.size(), index)) return noEntry(*control, index);
        setFocus(handle);
        selectListView(*control, indices);
        return std::nullopt;
    case WindowKind::TabControl: {
        if (indices.size() != 1) return describe(*control) + " takes exactly one tab";
        if (!validIndex(control->as<TabState>()->items.size(), indices.front())) return noEntry(*control, indices.front());
        NMHDR asking{};
        asking.code = static_cast<uint32_t>(TCN_SELCHANGING);
        if (sendNotifyToParent(*control, asking) != 0) return std::nullopt; // the dialog kept the current tab
        setCurrentTab(*control, indices.front());
        NMHDR changed{};
        changed.code = static_cast<uint32_t>(TCN_SELCHANGE);
        sendNotifyToParent(*control, changed);
        return std::nullopt;
    }
    default:
        return wrongKind(*control, "select entries");
    }
}

Refusal toggleEntry(HWND handle, int32_t index) {
    if (auto refused = unreachable(handle)) return refused;
    auto control = findWindow(handle);
    if (control->kind == WindowKind::ListBox && isMultipleSelectionList(*control)) {
        auto &entries = control->as<ListBoxState>()->entries;
        if (!validIndex(entries.size(), index)) return noEntry(*control, index);
        auto selected = selectedListEntries(*control);
        auto at = std::find(selected.begin(), selected.end(), index);
        if (at == selected.end()) selected.push_back(index);
        else selected.erase(at);
        std::sort(selected.begin(), selected.end());
        setListSelection(*control, selected);
        control->as<ListBoxState>()->current = index;
        sendCommandToParent(*control, LBN_SELCHANGE);
        return std::nullopt;
    }
    if (control->kind == WindowKind::ListView && !isSingleSelectionListView(*control)) {
        auto &items = control->as<ListViewState>()->items;
        if (!validIndex(items.size(), index)) return noEntry(*control, index);
        bool selected = (items[static_cast<std::size_t>(index)].state & LVIS_SELECTED) != 0;
        setListViewItemState(*control, index, selected ? LVIS_FOCUSED : (LVIS_SELECTED | LVIS_FOCUSED),
                             LVIS_SELECTED | LVIS_FOCUSED);
        return std::nullopt;
    }
    return wrongKind(*control, "toggle entries (it is not a multiple-selection list)");
}

Refusal doubleClick(HWND handle, int32_t index) {
    if (auto refused = unreachable(handle)) return refused;
    movePointerTo(handle);
    auto control = findWindow(handle);
    switch (control->kind) {
    case WindowKind::ListBox:
        if (index >= 0) {
            if (auto refused = selectEntries(handle, {index})) return refused;
        } else {
            setFocus(handle);
        }
        if (findWindow(handle)) sendCommandToParent(*control, LBN_DBLCLK);
        return std::nullopt;
    case WindowKind::ListView:
        if (index >= 0) {
            if (!validIndex(control->as<ListViewState>()->items.size(), index)) return noEntry(*control, index);
            if (auto refused = selectEntries(handle, {index})) return refused;
        } else {
            setFocus(handle);
        }
        if (findWindow(handle)) notifyListViewClick(*control, NM_DBLCLK, index);
        return std::nullopt;
    case WindowKind::Button:
        if (auto refused = click(handle)) return refused;
        if (findWindow(handle) && !unreachable(handle)) clickButton(*control);
        return std::nullopt;
    default:
        return wrongKind(*control, "be double-clicked");
    }
}

Refusal rightClick(HWND handle, int32_t index) {
    if (auto refused = unreachable(handle)) return refused;
    movePointerTo(handle);
    auto control = findWindow(handle);
    setFocus(handle);
    if (control->kind == WindowKind::ListView) {
        const auto &items = control->as<ListViewState>()->items;
        if (index >= 0) {
            if (!validIndex(items.size(), index)) return noEntry(*control, index);
            if (!(items[static_cast<std::size_t>(index)].state & LVIS_SELECTED)) selectListView(*control, {index});
            else setListViewItemState(*control, index, LVIS_FOCUSED, LVIS_FOCUSED);
        }
        if (findWindow(handle)) notifyListViewClick(*control, NM_RCLICK, index);
        return std::nullopt;
    }
    if (control->parent) sendMessage(control->parent, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
    return std::nullopt;
}

Refusal setItemChecked(HWND handle, int32_t index, bool checked) {
    if (auto refused = unreachable(handle)) return refused;
    auto control = findWindow(handle);
    const auto *view = control->as<ListViewState>();
    if (!view || !(view->extendedStyle & LVS_EX_CHECKBOXES)) return wrongKind(*control, "check items (no check boxes)");
    if (!validIndex(view->items.size(), index)) return noEntry(*control, index);
    setFocus(handle);
    setListViewItemState(*control, index, INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), LVIS_STATEIMAGEMASK);
    return std::nullopt;
}

Refusal dropEntry(HWND source, int32_t item, HWND target, int32_t position) {
    if (auto refused = unreachable(source)) return refused;
    if (auto refused = unreachable(target)) return refused;
    auto from = findWindow(source);
    auto to = findWindow(target);
    if (!(from->dragFlags & OSTREL_DRAG_SOURCE)) return describe(*from) + " is no drag source";
    if (!(to->dragFlags & OSTREL_DROP_TARGET)) return describe(*to) + " takes no drops";
    if (topLevelOf(source) != topLevelOf(target)) return std::string("the lists belong to different dialogs");
    if (!validIndex(entryCount(*from), item)) return noEntry(*from, item);
    if (position < 0 || static_cast<std::size_t>(position) > entryCount(*to))
        return describe(*to) + " has no place " + std::to_string(position);
    movePointerTo(target);
    setFocus(target);
    OstrelDropInfo drop{};
    drop.hdr.code = OSTREL_NM_DROPPED;
    drop.source = source;
    drop.sourceId = from->id;
    drop.item = item;
    drop.position = position;
    sendNotifyToParent(*to, drop.hdr);
    return std::nullopt;
}

Refusal pressTab(HWND handle, bool backward) {
    const DialogState *state = keyTaker(handle);
    if (!state) return noKeyTaker();
    HWND next = nextTabStop(handle, state->focus, backward);
    if (!next) return std::nullopt; // nothing to go to: the key does nothing
    auto target = findWindow(next);
    if (auto *edit = target->as<EditState>()) {
        edit->selectionStart = 0;
        edit->selectionEnd = static_cast<int32_t>(target->text.size());
    }
    setFocus(next);
    return std::nullopt;
}

Refusal pressEnter(HWND handle) {
    const DialogState *state = keyTaker(handle);
    if (!state) return noKeyTaker();
    auto focused = findWindow(state->focus);
    if (focused && focused->kind == WindowKind::Button && isPushButton(*focused) && !unreachable(focused->handle))
        return click(focused->handle);
    if (focused && focused->kind == WindowKind::Edit && isMultiLineEdit(*focused) && (focused->style & ES_WANTRETURN))
        return typeText(focused->handle, u"\r");
    pressDefaultButton(handle);
    return std::nullopt;
}

Refusal pressEscape(HWND handle) {
    if (!keyTaker(handle)) return noKeyTaker();
    auto dialog = findWindow(handle);
    HWND cancel = nullptr;
    for (HWND child : dialog->children)
        if (auto control = findWindow(child); control && control->id == IDCANCEL) cancel = child;
    if (cancel && unreachable(cancel)) return std::nullopt; // a disabled Cancel: Escape does nothing
    sendMessage(handle, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(cancel));
    return std::nullopt;
}

Refusal closeDialog(HWND handle) {
    auto dialog = findWindow(handle);
    if (!dialog || dialog->kind != WindowKind::Dialog) return std::string("the dialog is gone");
    sendMessage(handle, WM_CLOSE, 0, 0);
    return std::nullopt;
}

Refusal pressAbort(HWND handle) {
    auto window = findWindow(handle);
    if (!window || window->kind != WindowKind::ProgressIndicator) return std::string("the progress indicator is gone");
    auto *state = window->as<ProgressIndicatorState>();
    if (!state->abortable) return std::string("the progress indicator has no abort button");
    state->aborted = true;
    announce(*window, Change::Position);
    return std::nullopt;
}

Refusal focus(HWND handle) {
    if (auto refused = unreachable(handle)) return refused;
    setFocus(handle);
    return std::nullopt;
}

} // namespace tabra::window::input
