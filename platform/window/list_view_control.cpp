// Report list views. Item state changes are applied first and notified afterwards, so
// a dialog procedure that changes the list while it handles LVN_ITEMCHANGED never
// sees a half-applied change.
#include "platform/window/list_view_control.h"

#include "platform/text/case_folding.h"
#include "platform/window/message_dispatch.h"

#include <algorithm>

namespace tabra::window {
namespace {

// LPSTR_TEXTCALLBACKW: the parent would supply the text; this list view keeps texts only.
bool isTextCallback(const char16_t *text) { return reinterpret_cast<intptr_t>(text) == -1; }
constexpr uint32_t kFindWrap = 0x20u; // LVFI_WRAP

bool validItem(const ListViewState &state, intptr_t index) {
    return index >= 0 && index < static_cast<intptr_t>(state.items.size());
}

std::u16string itemText(const char16_t *text) {
    return (text && !isTextCallback(text)) ? std::u16string(text) : std::u16string();
}

const std::u16string &subItemText(const ListViewItem &item, int32_t subItem) {
    static const std::u16string empty;
    return (subItem >= 0 && subItem < static_cast<int32_t>(item.texts.size())) ? item.texts[static_cast<std::size_t>(subItem)]
                                                                              : empty;
}

bool setSubItemText(Window &view, ListViewState &state, intptr_t index, int32_t subItem, std::u16string text) {
    if (!validItem(state, index) || subItem < 0) return false;
    auto &texts = state.items[static_cast<std::size_t>(index)].texts;
    if (static_cast<int32_t>(texts.size()) <= subItem) texts.resize(static_cast<std::size_t>(subItem) + 1);
    texts[static_cast<std::size_t>(subItem)] = std::move(text);
    announce(view, Change::EntryChanged, static_cast<int32_t>(index));
    return true;
}

// In a view with check boxes every item shows one, unchecked unless it was given a
// state image of its own.
void giveCheckBox(const ListViewState &state, ListViewItem &item) {
    if ((state.extendedStyle & LVS_EX_CHECKBOXES) && !(item.state & LVIS_STATEIMAGEMASK))
        item.state |= INDEXTOSTATEIMAGEMASK(1);
}

void notifyItem(const Window &view, int32_t code, int32_t item, LPARAM param) {
    NMLISTVIEW info{};
    info.hdr.code = static_cast<uint32_t>(code);
    info.iItem = item;
    info.lParam = param;
    sendNotifyToParent(view, info.hdr);
}

bool matchesNextFlags(const ListViewItem &item, uint32_t flags) {
    if ((flags & LVNI_SELECTED) && !(item.state & LVIS_SELECTED)) return false;
    if ((flags & LVNI_FOCUSED) && !(item.state & LVIS_FOCUSED)) return false;
    return true;
}

bool matchesFind(const ListViewItem &item, const LVFINDINFOW &find) {
    if (find.flags & LVFI_PARAM) return item.param == find.lParam;
    std::u16string_view wanted = find.psz ? std::u16string_view(find.psz) : std::u16string_view();
    std::u16string_view text = subItemText(item, 0);
    if (find.flags & LVFI_PARTIAL)
        return text.size() >= wanted.size() && platform::equalIgnoringCase(text.substr(0, wanted.size()), wanted);
    return platform::equalIgnoringCase(text, wanted);
}

void copyColumnOut(const ListViewColumn &column, LVCOLUMNW &out, int32_t index) {
    if (out.mask & LVCF_TEXT) copyTextOut(column.title, out.pszText, out.cchTextMax);
    if (out.mask & LVCF_WIDTH) out.cx = column.width;
    if (out.mask & LVCF_FMT) out.fmt = column.format;
    if (out.mask & LVCF_SUBITEM) out.iSubItem = index;
}

void applyColumn(ListViewColumn &column, const LVCOLUMNW &in) {
    if (in.mask & LVCF_TEXT) column.title = itemText(in.pszText);
    if (in.mask & LVCF_WIDTH) column.width = in.cx;
    if (in.mask & LVCF_FMT) column.format = in.fmt;
}

} // namespace

bool isSingleSelectionListView(const Window &listView) { return (listView.style & LVS_SINGLESEL) != 0; }

void setListViewItemState(Window &view, int32_t item, uint32_t state, uint32_t mask) {
    auto *data = view.as<ListViewState>();
    if (!data || (item != -1 && !validItem(*data, item))) return;
    struct Changed {
        int32_t item;
        uint32_t oldState, newState;
        LPARAM param;
    };
    std::vector<Changed> changes;
    auto change = [&](std::size_t i, uint32_t newState) {
        auto &entry = data->items[i];
        if (entry.state == newState) return;
        changes.push_back({static_cast<int32_t>(i), entry.state, newState, entry.param});
        entry.state = newState;
    };
    bool selecting = (mask & LVIS_SELECTED) && (state & LVIS_SELECTED);
    bool focusing = (mask & LVIS_FOCUSED) && (state & LVIS_FOCUSED);
    // "Every item" selects only the first one in a single-selection view, and only one
    // item can have the focus.
    if (item == -1 && ((selecting && isSingleSelectionListView(view)) || focusing)) {
        if (data->items.empty()) return;
        item = 0;
    }
    for (std::size_t i = 0; i < data->items.size(); ++i) {
        if (item == -1 || static_cast<int32_t>(i) == item) continue;
        uint32_t cleared = data->items[i].state;
        if (selecting && isSingleSelectionListView(view)) cleared &= ~LVIS_SELECTED;
        if (focusing) cleared &= ~LVIS_FOCUSED;
        change(i, cleared);
    }
    for (std::size_t i = 0; i < data->items.size(); ++i) {
        if (item != -1 && static_cast<int32_t>(i) != item) continue;
        change(i, (data->items[i].state & ~mask) | (state & mask));
    }
    if (changes.empty()) return;
    announce(view, Change::Selection, changes.size() == 1 ? changes.front().item : -1);
    for (const auto &changed : changes) {
        NMLISTVIEW info{};
        info.hdr.code = static_cast<uint32_t>(LVN_ITEMCHANGED);
        info.iItem = changed.item;
        info.uNewState = changed.newState;
        info.uOldState = changed.oldState;
        info.uChanged = LVIF_STATE;
        info.lParam = changed.param;
        sendNotifyToParent(view, info.hdr);
    }
}

bool listViewMessage(Window &view, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    auto *state = view.as<ListViewState>();
    if (!state) return false;
    auto index = static_cast<intptr_t>(wParam);
    auto count = static_cast<int32_t>(state->items.size());
    auto columns = static_cast<int32_t>(state->columns.size());
    switch (message) {
    case LVM_INSERTCOLUMNW: {
        const auto *in = reinterpret_cast<const LVCOLUMNW *>(lParam);
        if (!in || index < 0) {
            result = -1;
            return true;
        }
        ListViewColumn column;
        applyColumn(column, *in);
        auto position = static_cast<int32_t>(std::min<intptr_t>(index, columns));
        state->columns.insert(state->columns.begin() + position, std::move(column));
        announce(view, Change::Columns, position);
        result = position;
        return true;
    }
    case LVM_DELETECOLUMN:
        if (index < 0 || index >= columns) {
            result = 0;
            return true;
        }
        state->columns.erase(state->columns.begin() + index);
        announce(view, Change::Columns, static_cast<int32_t>(index));
        result = 1;
        return true;
    case LVM_GETCOLUMNW:
    case LVM_SETCOLUMNW: {
        auto *column = reinterpret_cast<LVCOLUMNW *>(lParam);
        if (!column || index < 0 || index >= columns) {
            result = 0;
            return true;
        }
        if (message == LVM_GETCOLUMNW) {
            copyColumnOut(state->columns[static_cast<std::size_t>(index)], *column, static_cast<int32_t>(index));
        } else {
            applyColumn(state->columns[static_cast<std::size_t>(index)], *column);
            announce(view, Change::Columns, static_cast<int32_t>(index));
        }
        result = 1;
        return true;
    }
    case LVM_GETCOLUMNWIDTH:
        result = (index >= 0 && index < columns) ? state->columns[static_cast<std::size_t>(index)].width : 0;
        return true;
    case LVM_SETCOLUMNWIDTH:
        if (index < 0 || index >= columns) {
            result = 0;
            return true;
        }
        state->columns[static_cast<std::size_t>(index)].width = static_cast<int16_t>(LOWORD(lParam));
        announce(view, Change::Columns, static_cast<int32_t>(index));
        result = 1;
        return true;
    case LVM_GETITEMCOUNT:
        result = count;
        return true;
    case LVM_INSERTITEMW: {
        const auto *in = reinterpret_cast<const LVITEMW *>(lParam);
        if (!in || in->iSubItem != 0 || in->iItem < 0) {
            result = -1;
            return true;
        }
        int32_t position = std::min(in->iItem, count);
        ListViewItem item;
        item.texts.push_back((in->mask & LVIF_TEXT) ? itemText(in->pszText) : std::u16string());
        if (in->mask & LVIF_PARAM) item.param = in->lParam;
        if (in->mask & LVIF_STATE) item.state = in->state & in->stateMask;
        giveCheckBox(*state, item);
        LPARAM param = item.param;
        state->items.insert(state->items.begin() + position, std::move(item));
        announce(view, Change::EntryInserted, position);
        notifyItem(view, LVN_INSERTITEM, position, param);
        result = position;
        return true;
    }
    case LVM_SETITEMW: {
        const auto *in = reinterpret_cast<const LVITEMW *>(lParam);
        if (!in || !validItem(*state, in->iItem)) {
            result = 0;
            return true;
        }
        if ((in->mask & LVIF_TEXT) && !setSubItemText(view, *state, in->iItem, in->iSubItem, itemText(in->pszText))) {
            result = 0;
            return true;
        }
        if ((in->mask & LVIF_PARAM) && in->iSubItem == 0) {
            state->items[static_cast<std::size_t>(in->iItem)].param = in->lParam;
            announce(view, Change::EntryChanged, in->iItem);
        }
        if (in->mask & LVIF_STATE) setListViewItemState(view, in->iItem, in->state, in->stateMask);
        result = 1;
        return true;
    }
    case LVM_GETITEMW: {
        auto *out = reinterpret_cast<LVITEMW *>(lParam);
        if (!out || !validItem(*state, out->iItem)) {
            result = 0;
            return true;
        }
        const auto &item = state->items[static_cast<std::size_t>(out->iItem)];
        if (out->mask & LVIF_TEXT) copyTextOut(subItemText(item, out->iSubItem), out->pszText, out->cchTextMax);
        if (out->mask & LVIF_PARAM) out->lParam = item.param;
        if (out->mask & LVIF_STATE) out->state = item.state & out->stateMask;
        result = 1;
        return true;
    }
    case LVM_SETITEMTEXTW: {
        const auto *in = reinterpret_cast<const LVITEMW *>(lParam);
        result = in && setSubItemText(view, *state, index, in->iSubItem, itemText(in->pszText)) ? 1 : 0;
        return true;
    }
    case LVM_GETITEMTEXTW: {
        auto *out = reinterpret_cast<LVITEMW *>(lParam);
        if (!out || !validItem(*state, index)) {
            result = 0;
            return true;
        }
        result = copyTextOut(subItemText(state->items[static_cast<std::size_t>(index)], out->iSubItem), out->pszText,
                             out->cchTextMax);
        return true;
    }
    case LVM_DELETEITEM: {
        if (!validItem(*state, index)) {
            result = 0;
            return true;
        }
        LPARAM param = state->items[static_cast<std::size_t>(index)].param;
        notifyItem(view, LVN_DELETEITEM, static_cast<int32_t>(index), param);
        auto *after = view.as<ListViewState>(); // the notification may have changed the list
        if (!validItem(*after, index)) {
            result = 0;
            return true;
        }
        after->items.erase(after->items.begin() + index);
        announce(view, Change::EntryRemoved, static_cast<int32_t>(index));
        result = 1;
        return true;
    }
    case LVM_DELETEALLITEMS: {
        // As in Win32: a parent that answers LVN_DELETEALLITEMS with nonzero does not
        // want one LVN_DELETEITEM per item.
        NMLISTVIEW all{};
        all.hdr.code = static_cast<uint32_t>(LVN_DELETEALLITEMS);
        all.iItem = -1;
        if (count > 0 && sendNotifyToParent(view, all.hdr) == 0) {
            std::vector<std::pair<int32_t, LPARAM>> params;
            for (int32_t i = 0; i < count; ++i) params.emplace_back(i, state->items[static_cast<std::size_t>(i)].param);
            for (auto [i, param] : params) notifyItem(view, LVN_DELETEITEM, i, param);
        }
        view.as<ListViewState>()->items.clear();
        announce(view, Change::EntriesCleared);
        result = 1;
        return true;
    }
    case LVM_GETNEXTITEM: {
        auto flags = static_cast<uint32_t>(lParam);
        result = -1;
        for (intptr_t i = index < 0 ? 0 : index + 1; i < count; ++i) {
            if (matchesNextFlags(state->items[static_cast<std::size_t>(i)], flags)) {
                result = i;
                break;
            }
        }
        return true;
    }
    case LVM_SETITEMSTATE: {
        const auto *in = reinterpret_cast<const LVITEMW *>(lParam);
        if (!in || (index != -1 && !validItem(*state, index))) {
            result = 0;
            return true;
        }
        setListViewItemState(view, static_cast<int32_t>(index), in->state, in->stateMask);
        result = 1;
        return true;
    }
    case LVM_GETITEMSTATE:
        result = validItem(*state, index) ? (state->items[static_cast<std::size_t>(index)].state & static_cast<uint32_t>(lParam))
                                          : 0;
        return true;
    case LVM_GETSELECTEDCOUNT:
        result = std::count_if(state->items.begin(), state->items.end(),
                               [](const ListViewItem &item) { return (item.state & LVIS_SELECTED) != 0; });
        return true;
    case LVM_SETEXTENDEDLISTVIEWSTYLE: {
        uint32_t mask = wParam == 0 ? 0xFFFFFFFFu : static_cast<uint32_t>(wParam);
        result = state->extendedStyle;
        state->extendedStyle = (state->extendedStyle & ~mask) | (static_cast<uint32_t>(lParam) & mask);
        for (auto &item : state->items) giveCheckBox(*state, item);
        announce(view, Change::Style);
        return true;
    }
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
        result = state->extendedStyle;
        return true;
    case LVM_FINDITEMW: {
        const auto *find = reinterpret_cast<const LVFINDINFOW *>(lParam);
        result = -1;
        if (!find || count == 0) return true;
        int32_t first = index < 0 ? 0 : static_cast<int32_t>(index) + 1;
        int32_t span = (find->flags & kFindWrap) ? count : count - std::min(first, count);
        for (int32_t n = 0; n < span; ++n) {
            int32_t i = (first + n) % count;
            if (matchesFind(state->items[static_cast<std::size_t>(i)], *find)) {
                result = i;
                break;
            }
        }
        return true;
    }
    case LVM_ENSUREVISIBLE:
    case LVM_REDRAWITEMS:
    case LVM_UPDATE:
        result = 1;
        return true;
    default:
        return false;
    }
}

} // namespace tabra::window
