// List boxes. The selection of a single-selection list is ListBoxState::current; a
// multiple-selection list keeps a flag per entry and a caret. Programmatic selection
// messages never notify the dialog; only user input does (user_input.cpp).
#include "platform/window/list_box_control.h"

#include "platform/window/message_dispatch.h"

#include <algorithm>

namespace tabra::window {
namespace {

bool validIndex(const ListBoxState &state, intptr_t index) { return validEntryIndex(state.entries, index); }

constexpr EntryMessageSet listEntryMessages{LB_ADDSTRING,   LB_INSERTSTRING, LB_GETCOUNT,
                                            LB_GETTEXT,     LB_GETTEXTLEN,   LB_GETITEMDATA,
                                            LB_SETITEMDATA, LB_FINDSTRING,   LB_FINDSTRINGEXACT,
                                            LB_ERR};

} // namespace

bool isMultipleSelectionList(const Window &list) { return (list.style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }

std::vector<int32_t> selectedListEntries(const Window &list) {
    const auto *state = list.as<ListBoxState>();
    std::vector<int32_t> selected;
    if (!state) return selected;
    if (isMultipleSelectionList(list)) {
        for (std::size_t i = 0; i < state->entries.size(); ++i)
            if (state->entries[i].selected) selected.push_back(static_cast<int32_t>(i));
    } else if (validIndex(*state, state->current)) {
        selected.push_back(state->current);
    }
    return selected;
}

void setListSelection(Window &list, const std::vector<int32_t> &indices) {
    auto *state = list.as<ListBoxState>();
    if (!state) return;
    if (isMultipleSelectionList(list)) {
        for (auto &entry : state->entries) entry.selected = false;
        for (int32_t index : indices)
            if (validIndex(*state, index)) state->entries[static_cast<std::size_t>(index)].selected = true;
        if (!indices.empty()) state->current = indices.back();
    } else {
        state->current = (!indices.empty() && validIndex(*state, indices.front())) ? indices.front() : -1;
    }
    announce(list, Change::Selection);
}

bool listBoxMessage(Window &list, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    auto *state = list.as<ListBoxState>();
    if (!state) return false;
    if (entryListMessage(list, {state->entries, state->current, (list.style & LBS_SORT) != 0}, listEntryMessages, message,
                         wParam, lParam, result))
        return true;
    bool multiple = isMultipleSelectionList(list);
    auto index = static_cast<intptr_t>(wParam);
    auto count = static_cast<int32_t>(state->entries.size());
    switch (message) {
    case LB_DELETESTRING:
        if (!validIndex(*state, index)) {
            result = LB_ERR;
            return true;
        }
        state->entries.erase(state->entries.begin() + index);
        if (state->current == index) state->current = multiple ? std::min<int32_t>(state->current, count - 2) : -1;
        else if (state->current > index) --state->current;
        announce(list, Change::EntryRemoved, static_cast<int32_t>(index));
        result = count - 1;
        return true;
    case LB_RESETCONTENT:
        state->entries.clear();
        state->current = -1;
        state->top = 0;
        announce(list, Change::EntriesCleared);
        result = 0;
        return true;
    case LB_SETCURSEL:
        if (multiple) {
            result = LB_ERR;
        } else if (index == -1) {
            setListSelection(list, {});
            result = LB_ERR; // as in Win32: -1 clears the selection and answers LB_ERR
        } else if (!validIndex(*state, index)) {
            result = LB_ERR;
        } else {
            setListSelection(list, {static_cast<int32_t>(index)});
            result = index;
        }
        return true;
    case LB_GETCURSEL:
        result = validIndex(*state, state->current) ? state->current : LB_ERR;
        return true;
    case LB_SETSEL: {
        auto item = static_cast<intptr_t>(lParam);
        if (!multiple || (item != -1 && !validIndex(*state, item))) {
            result = LB_ERR;
            return true;
        }
        for (std::size_t i = 0; i < state->entries.size(); ++i)
            if (item == -1 || static_cast<intptr_t>(i) == item) state->entries[i].selected = wParam != 0;
        announce(list, Change::Selection, item == -1 ? -1 : static_cast<int32_t>(item));
        result = 0;
        return true;
    }
    case LB_GETSEL:
        if (!validIndex(*state, index)) result = LB_ERR;
        else result = multiple ? state->entries[static_cast<std::size_t>(index)].selected : state->current == index;
        return true;
    case LB_GETSELCOUNT:
        result = multiple ? static_cast<LRESULT>(selectedListEntries(list).size()) : LB_ERR;
        return true;
    case LB_GETSELITEMS: {
        if (!multiple) {
            result = LB_ERR;
            return true;
        }
        auto *out = reinterpret_cast<int32_t *>(lParam);
        int32_t written = 0;
        for (int32_t selected : selectedListEntries(list)) {
            if (!out || written >= static_cast<int32_t>(wParam)) break;
            out[written++] = selected;
        }
        result = written;
        return true;
    }
    case LB_SELECTSTRING: {
        if (multiple) {
            result = LB_ERR;
            return true;
        }
        int32_t found = findListEntry(state->entries, textFromParameter(lParam), static_cast<int32_t>(index), false);
        if (found >= 0) setListSelection(list, {found});
        result = found;
        return true;
    }
    case LB_GETTOPINDEX:
        result = state->top;
        return true;
    case LB_SETTOPINDEX:
        if (!validIndex(*state, index) && !(index == 0 && count == 0)) {
            result = LB_ERR;
            return true;
        }
        state->top = static_cast<int32_t>(index);
        result = 0;
        return true;
    case LB_GETCARETINDEX:
        result = validIndex(*state, state->current) ? state->current : (count > 0 ? 0 : LB_ERR);
        return true;
    case LB_SETCARETINDEX:
        if (!validIndex(*state, index)) {
            result = LB_ERR;
            return true;
        }
        if (multiple) state->current = static_cast<int32_t>(index);
        result = 0;
        return true;
    default:
        return false;
    }
}

} // namespace tabra::window
