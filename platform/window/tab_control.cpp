// Tab controls. Changing the current tab from the program sends nothing; the user's
// change (user_input.cpp) asks TCN_SELCHANGING and reports TCN_SELCHANGE.
#include "platform/window/tab_control.h"

#include "platform/window/message_dispatch.h"

#include <algorithm>

namespace tabra::window {
namespace {

bool validTab(const TabState &state, intptr_t index) {
    return index >= 0 && index < static_cast<intptr_t>(state.items.size());
}

void applyItem(TabItem &item, const TCITEMW &in) {
    if (in.mask & TCIF_TEXT) item.text = in.pszText ? std::u16string(in.pszText) : std::u16string();
    if (in.mask & TCIF_PARAM) item.param = in.lParam;
}

} // namespace

void setCurrentTab(Window &tab, int32_t index) {
    auto *state = tab.as<TabState>();
    if (!state) return;
    int32_t wanted = validTab(*state, index) ? index : -1;
    if (state->current == wanted) return;
    state->current = wanted;
    announce(tab, Change::Selection, wanted);
}

bool tabControlMessage(Window &tab, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    auto *state = tab.as<TabState>();
    if (!state) return false;
    auto index = static_cast<intptr_t>(wParam);
    auto count = static_cast<int32_t>(state->items.size());
    switch (message) {
    case TCM_INSERTITEMW: {
        const auto *in = reinterpret_cast<const TCITEMW *>(lParam);
        if (!in || index < 0) {
            result = -1;
            return true;
        }
        auto position = static_cast<int32_t>(std::min<intptr_t>(index, count));
        TabItem item;
        applyItem(item, *in);
        state->items.insert(state->items.begin() + position, std::move(item));
        if (state->current >= position) ++state->current;
        if (state->current < 0) state->current = 0; // the first tab becomes current, as in Win32
        announce(tab, Change::EntryInserted, position);
        result = position;
        return true;
    }
    case TCM_DELETEITEM:
        if (!validTab(*state, index)) {
            result = 0;
            return true;
        }
        state->items.erase(state->items.begin() + index);
        if (state->current == index) state->current = -1;
        else if (state->current > index) --state->current;
        announce(tab, Change::EntryRemoved, static_cast<int32_t>(index));
        result = 1;
        return true;
    case TCM_DELETEALLITEMS:
        state->items.clear();
        state->current = -1;
        announce(tab, Change::EntriesCleared);
        result = 1;
        return true;
    case TCM_GETITEMCOUNT:
        result = count;
        return true;
    case TCM_GETCURSEL:
        result = state->current;
        return true;
    case TCM_SETCURSEL: {
        LRESULT previous = state->current;
        if (!validTab(*state, index)) {
            result = -1;
            return true;
        }
        setCurrentTab(tab, static_cast<int32_t>(index));
        result = previous;
        return true;
    }
    case TCM_GETITEMW: {
        auto *out = reinterpret_cast<TCITEMW *>(lParam);
        if (!out || !validTab(*state, index)) {
            result = 0;
            return true;
        }
        const auto &item = state->items[static_cast<std::size_t>(index)];
        if (out->mask & TCIF_TEXT) copyTextOut(item.text, out->pszText, out->cchTextMax);
        if (out->mask & TCIF_PARAM) out->lParam = item.param;
        result = 1;
        return true;
    }
    case TCM_SETITEMW: {
        const auto *in = reinterpret_cast<const TCITEMW *>(lParam);
        if (!in || !validTab(*state, index)) {
            result = 0;
            return true;
        }
        applyItem(state->items[static_cast<std::size_t>(index)], *in);
        announce(tab, Change::EntryChanged, static_cast<int32_t>(index));
        result = 1;
        return true;
    }
    default:
        return false;
    }
}

} // namespace tabra::window
