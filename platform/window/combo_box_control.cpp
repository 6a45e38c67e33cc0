// Combo boxes. A drop-down list's text always is its selected entry's; an editable
// combo's text is whatever the user typed or the program set, and selecting an entry
// copies the entry's text into it.
#include "platform/window/combo_box_control.h"

#include "platform/text/bounded_text.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/renderer_selection.h"

#include <algorithm>

namespace tabra::window {
namespace {

bool validIndex(const ComboBoxState &state, intptr_t index) { return validEntryIndex(state.entries, index); }

constexpr EntryMessageSet comboEntryMessages{CB_ADDSTRING,   CB_INSERTSTRING, CB_GETCOUNT,
                                             CB_GETLBTEXT,   CB_GETLBTEXTLEN, CB_GETITEMDATA,
                                             CB_SETITEMDATA, CB_FINDSTRING,   CB_FINDSTRINGEXACT,
                                             CB_ERR};

void setText(Window &combo, std::u16string text) {
    if (combo.text == text) return;
    combo.text = std::move(text);
    announce(combo, Change::Text);
}

// A character typed into an editable combo's edit field: appended at the caret,
// a backspace removes the character before it.
void typeCharacter(Window &combo, ComboBoxState &state, char16_t c) {
    if (isDropDownList(combo)) return;
    auto length = static_cast<int32_t>(combo.text.size());
    int32_t from = std::clamp(std::min(state.selectionStart, state.selectionEnd), 0, length);
    int32_t to = std::clamp(std::max(state.selectionStart, state.selectionEnd), 0, length);
    std::u16string text = combo.text;
    if (c == 8) {
        if (from == to) {
            if (from == 0) return;
            from -= (from > 1 && platform::isLowSurrogate(text[static_cast<std::size_t>(from - 1)]) &&
                     platform::isHighSurrogate(text[static_cast<std::size_t>(from - 2)]))
                        ? 2
                        : 1;
        }
        text.erase(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
    } else {
        if (c < 32) return;
        if (length - (to - from) + 1 > state.limit) {
            activeRenderer().beep(0);
            return;
        }
        text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), 1, c);
        ++from;
    }
    state.selectionStart = state.selectionEnd = from;
    state.current = -1;
    setText(combo, std::move(text));
    sendCommandToParent(combo, CBN_EDITUPDATE);
    sendCommandToParent(combo, CBN_EDITCHANGE);
}

} // namespace

bool isDropDownList(const Window &combo) { return (combo.style & 0x3u) == CBS_DROPDOWNLIST; }

void setComboSelection(Window &combo, int32_t index) {
    auto *state = combo.as<ComboBoxState>();
    if (!state) return;
    state->current = validIndex(*state, index) ? index : -1;
    if (state->current >= 0) setText(combo, state->entries[static_cast<std::size_t>(state->current)].text);
    else if (isDropDownList(combo)) setText(combo, u"");
    auto length = static_cast<int32_t>(combo.text.size());
    state->selectionStart = 0;
    state->selectionEnd = length;
    announce(combo, Change::Selection, state->current);
}

bool comboBoxMessage(Window &combo, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    auto *state = combo.as<ComboBoxState>();
    if (!state) return false;
    if (entryListMessage(combo, {state->entries, state->current, (combo.style & CBS_SORT) != 0}, comboEntryMessages,
                         message, wParam, lParam, result))
        return true;
    auto index = static_cast<intptr_t>(wParam);
    auto count = static_cast<int32_t>(state->entries.size());
    switch (message) {
    case WM_SETTEXT: {
        std::u16string text = textFromParameter(lParam);
        int32_t found = findListEntry(state->entries, text, -1, true);
        if (isDropDownList(combo)) {
            // A drop-down list can only show one of its entries.
            if (found < 0) {
                result = CB_ERR;
                return true;
            }
            setComboSelection(combo, found);
        } else {
            state->current = found;
            setText(combo, std::move(text));
            state->selectionStart = state->selectionEnd = 0;
            announce(combo, Change::Selection, found);
        }
        result = 1;
        return true;
    }
    case WM_CHAR:
        typeCharacter(combo, *state, static_cast<char16_t>(wParam));
        result = 0;
        return true;
    case CB_DELETESTRING:
        if (!validIndex(*state, index)) {
            result = CB_ERR;
            return true;
        }
        state->entries.erase(state->entries.begin() + index);
        if (state->current == index) {
            state->current = -1;
            if (isDropDownList(combo)) setText(combo, u"");
        } else if (state->current > index) {
            --state->current;
        }
        announce(combo, Change::EntryRemoved, static_cast<int32_t>(index));
        result = count - 1;
        return true;
    case CB_RESETCONTENT:
        state->entries.clear();
        state->current = -1;
        setText(combo, u"");
        announce(combo, Change::EntriesCleared);
        result = 0;
        return true;
    case CB_GETCURSEL:
        result = validIndex(*state, state->current) ? state->current : CB_ERR;
        return true;
    case CB_SETCURSEL:
        setComboSelection(combo, static_cast<int32_t>(index));
        result = validIndex(*state, index) ? index : CB_ERR;
        return true;
    case CB_SELECTSTRING: {
        int32_t found = findListEntry(state->entries, textFromParameter(lParam), static_cast<int32_t>(index), false);
        if (found >= 0) setComboSelection(combo, found);
        result = found;
        return true;
    }
    case CB_LIMITTEXT:
        state->limit = wParam == 0 ? 0x7FFFFFFE : static_cast<int32_t>(std::min<WPARAM>(wParam, 0x7FFFFFFE));
        announce(combo, Change::Style);
        result = 1;
        return true;
    case CB_GETEDITSEL: {
        if (auto *start = reinterpret_cast<uint32_t *>(wParam)) *start = static_cast<uint32_t>(state->selectionStart);
        if (auto *end = reinterpret_cast<uint32_t *>(lParam)) *end = static_cast<uint32_t>(state->selectionEnd);
        result = MAKELRESULT(state->selectionStart, state->selectionEnd);
        return true;
    }
    case CB_SETEDITSEL: {
        if (isDropDownList(combo)) {
            result = CB_ERR;
            return true;
        }
        auto length = static_cast<int32_t>(combo.text.size());
        auto start = static_cast<int16_t>(LOWORD(lParam));
        auto end = static_cast<int16_t>(HIWORD(lParam));
        state->selectionStart = start < 0 ? length : std::min<int32_t>(start, length);
        state->selectionEnd = end < 0 ? length : std::min<int32_t>(end, length);
        result = 1;
        return true;
    }
    case CB_SHOWDROPDOWN:
        result = 1;
        return true;
    case CB_GETDROPPEDSTATE:
        result = 0;
        return true;
    default:
        return false;
    }
}

} // namespace tabra::window
