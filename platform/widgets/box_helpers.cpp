// The in-house helpers for list boxes and combo boxes. Changes go through the boxes'
// own messages, so sorting, index bookkeeping and the renderer stay consistent.
#include "ostrel_ui.h"

#include "platform/text/bounded_text.h"
#include "platform/text/case_folding.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/window_registry.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

using namespace tabra::window;
using tabra::platform::equalIgnoringCase;

namespace {

// The messages that do the same thing in list boxes and combo boxes.
struct BoxMessages {
    uint32_t add, insert, remove, reset, setData, setCurrent;
};

constexpr BoxMessages kListMessages{LB_ADDSTRING, LB_INSERTSTRING, LB_DELETESTRING,
                                    LB_RESETCONTENT, LB_SETITEMDATA, LB_SETCURSEL};
constexpr BoxMessages kComboMessages{CB_ADDSTRING, CB_INSERTSTRING, CB_DELETESTRING,
                                     CB_RESETCONTENT, CB_SETITEMDATA, CB_SETCURSEL};

WindowPtr boxOf(HWND handle) {
    auto window = findWindow(handle);
    if (!window || (window->kind != WindowKind::ListBox && window->kind != WindowKind::ComboBox)) return nullptr;
    return window;
}

const BoxMessages &messagesOf(const Window &box) { return box.kind == WindowKind::ListBox ? kListMessages : kComboMessages; }

const std::vector<ListEntry> &entriesOf(const Window &box) {
    if (const auto *list = box.as<ListBoxState>()) return list->entries;
    return box.as<ComboBoxState>()->entries;
}

int32_t countOf(const Window &box) { return static_cast<int32_t>(entriesOf(box).size()); }

bool multipleSelection(const Window &box) { return box.kind == WindowKind::ListBox && isMultipleSelectionList(box); }

int32_t selectedIndex(const Window &box) {
    if (box.kind == WindowKind::ComboBox) return box.as<ComboBoxState>()->current;
    auto selected = selectedListEntries(box);
    return selected.empty() ? -1 : selected.front();
}

bool isSelected(const Window &box, int32_t index) {
    if (multipleSelection(box)) return entriesOf(box)[static_cast<std::size_t>(index)].selected;
    return selectedIndex(box) == index;
}

int32_t resolveIndex(const Window &box, int32_t index) {
    if (index == -1) index = selectedIndex(box);
    return (index >= 0 && index < countOf(box)) ? index : -1;
}

// Splits a separated list; empty pieces are kept (the caller decides about them).
std::vector<std::u16string> splitList(const char16_t *list, char16_t separator) {
    std::vector<std::u16string> pieces;
    if (!list || !*list) return pieces;
    std::u16string_view text(list);
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::u16string_view::npos) end = text.size();
        pieces.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return pieces;
}

LPARAM parseData(const std::u16string &text) {
    std::string digits;
    for (char16_t c : text) {
        if (c > 127) return 0;
        if (c != u' ') digits.push_back(static_cast<char>(c));
    }
    long long value = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() ? static_cast<LPARAM>(value) : 0;
}

int32_t findExact(const Window &box, std::u16string_view text) {
    const auto &entries = entriesOf(box);
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i].text == text) return static_cast<int32_t>(i);
    return -1;
}

int32_t addEntry(const Window &box, const std::u16string &text, LPARAM data, int32_t position) {
    const auto &messages = messagesOf(box);
    LRESULT index = position == -1
                        ? sendMessage(box.handle, messages.add, 0, reinterpret_cast<LPARAM>(text.c_str()))
                        : sendMessage(box.handle, messages.insert, static_cast<WPARAM>(position),
                                      reinterpret_cast<LPARAM>(text.c_str()));
    if (index < 0) return -1;
    sendMessage(box.handle, messages.setData, static_cast<WPARAM>(index), data);
    return static_cast<int32_t>(index);
}

void selectOnly(Window &box, const std::vector<int32_t> &indices) {
    if (box.kind == WindowKind::ListBox) setListSelection(box, indices);
    else setComboSelection(box, indices.empty() ? -1 : indices.front());
}

} // namespace

extern "C" {

int32_t Ostrel_FillBoxExtended(HWND handle, char16_t separator, const char16_t *list, uint32_t options) {
    auto box = boxOf(handle);
    if (!box) return -1;
    if (!(options & OSTREL_FILL_APPEND)) sendMessage(handle, messagesOf(*box).reset, 0, 0);
    std::vector<std::pair<std::u16string, LPARAM>> entries;
    auto pieces = splitList(list, separator);
    bool withData = (options & OSTREL_FILL_WITH_DATA) != 0;
    for (std::size_t i = 0; i < pieces.size(); i += withData ? 2 : 1) {
        if (pieces[i].empty()) continue;
        entries.emplace_back(pieces[i], withData && i + 1 < pieces.size() ? parseData(pieces[i + 1]) : 0);
    }
    if (options & OSTREL_FILL_SORTED)
        std::stable_sort(entries.begin(), entries.end(), [](const auto &a, const auto &b) {
            return tabra::platform::foldedCopy(a.first) < tabra::platform::foldedCopy(b.first);
        });
    int32_t added = 0;
    for (const auto &[text, data] : entries) {
        if ((options & OSTREL_FILL_UNIQUE) && findExact(*box, text) >= 0) continue;
        if (addEntry(*box, text, data, -1) >= 0) ++added;
    }
    return added;
}

int32_t Ostrel_FillBox(HWND box, char16_t separator, const char16_t *list) {
    return Ostrel_FillBoxExtended(box, separator, list, 0);
}

int32_t Ostrel_ResetBox(HWND handle) {
    auto box = boxOf(handle);
    if (!box) return 0;
    sendMessage(handle, messagesOf(*box).reset, 0, 0);
    return 1;
}

int32_t Ostrel_AddBoxEntry(HWND handle, const char16_t *text, LPARAM data, int32_t position, uint32_t flags) {
    auto box = boxOf(handle);
    if (!box || !text || position < -1 || position > countOf(*box)) return -1;
    if (flags & OSTREL_ADD_UNIQUE) {
        int32_t existing = findExact(*box, text);
        if (existing >= 0) return existing;
    }
    return addEntry(*box, text, data, position);
}

int32_t Ostrel_GetBoxEntry(HWND handle, int32_t index, char16_t *buffer, int32_t capacity) {
    if (!buffer || capacity < 1) return -1;
    buffer[0] = 0;
    auto box = boxOf(handle);
    if (!box) return -1;
    int32_t resolved = resolveIndex(*box, index);
    if (resolved < 0) return -1;
    return tabra::platform::writeBounded(buffer, capacity, entriesOf(*box)[static_cast<std::size_t>(resolved)].text);
}

int32_t Ostrel_SetBoxIndex(HWND handle, int32_t index) {
    auto box = boxOf(handle);
    if (!box || index < -1 || index >= countOf(*box)) return -1;
    selectOnly(*box, index == -1 ? std::vector<int32_t>{} : std::vector<int32_t>{index});
    return index;
}

int32_t Ostrel_GetBoxIndex(HWND handle) {
    auto box = boxOf(handle);
    return box ? selectedIndex(*box) : -1;
}

int32_t Ostrel_GetBoxCount(HWND handle) {
    auto box = boxOf(handle);
    return box ? countOf(*box) : -1;
}

int32_t Ostrel_FindBoxEntry(HWND handle, const char16_t *text, int32_t start, uint32_t flags) {
    auto box = boxOf(handle);
    if (!box || !text) return -1;
    std::u16string_view wanted(text);
    const auto &entries = entriesOf(*box);
    for (std::size_t i = static_cast<std::size_t>(std::max(start, 0)); i < entries.size(); ++i) {
        std::u16string_view entry = entries[i].text;
        if (flags & OSTREL_FIND_PREFIX) {
            if (entry.size() < wanted.size()) continue;
            entry = entry.substr(0, wanted.size());
        }
        bool equal = (flags & OSTREL_FIND_IGNORE_CASE) ? equalIgnoringCase(entry, wanted) : entry == wanted;
        if (equal) return static_cast<int32_t>(i);
    }
    return -1;
}

int32_t Ostrel_DeleteBoxEntry(HWND handle, int32_t position) {
    auto box = boxOf(handle);
    if (!box) return -1;
    int32_t resolved = resolveIndex(*box, position);
    if (resolved < 0) return -1;
    return static_cast<int32_t>(sendMessage(handle, messagesOf(*box).remove, static_cast<WPARAM>(resolved), 0));
}

LPARAM Ostrel_GetItemData(HWND handle, int32_t index) {
    auto box = boxOf(handle);
    if (!box) return LB_ERR;
    int32_t resolved = resolveIndex(*box, index);
    return resolved < 0 ? LB_ERR : entriesOf(*box)[static_cast<std::size_t>(resolved)].data;
}

int32_t Ostrel_IsListBox(HWND handle) {
    auto window = findWindow(handle);
    return window && window->kind == WindowKind::ListBox ? 1 : 0;
}

int32_t Ostrel_ReadBox(HWND handle, char16_t separator, uint32_t mode, char16_t *output, int32_t capacity) {
    if (!output || capacity < 1) return -1;
    output[0] = 0;
    auto box = boxOf(handle);
    if (!box) return -1;
    std::u16string text;
    int32_t written = 0;
    const auto &entries = entriesOf(*box);
    for (int32_t i = 0; i < static_cast<int32_t>(entries.size()); ++i) {
        if ((mode & OSTREL_READ_SELECTED) && !isSelected(*box, i)) continue;
        std::u16string piece;
        if (mode & OSTREL_READ_ITEM_DATA) {
            std::string digits = std::to_string(entries[static_cast<std::size_t>(i)].data);
            piece.assign(digits.begin(), digits.end());
        } else {
            piece = entries[static_cast<std::size_t>(i)].text;
        }
        std::size_t needed = text.size() + (written > 0 ? 1 : 0) + piece.size();
        if (needed > static_cast<std::size_t>(capacity - 1)) break;
        if (written > 0) text += separator;
        text += piece;
        ++written;
    }
    tabra::platform::writeBounded(output, capacity, text);
    return written;
}

int32_t Ostrel_SelectBoxEntries(HWND handle, char16_t separator, const char16_t *list, uint32_t flags) {
    auto box = boxOf(handle);
    if (!box) return -1;
    bool keep = (flags & 1u) != 0;
    std::vector<int32_t> chosen;
    for (const auto &piece : splitList(list, separator)) {
        int32_t index = findExact(*box, piece);
        if (index < 0 || std::find(chosen.begin(), chosen.end(), index) != chosen.end()) continue;
        chosen.push_back(index);
        if (!multipleSelection(*box)) break;
    }
    if (multipleSelection(*box) && keep) {
        std::vector<int32_t> all = selectedListEntries(*box);
        for (int32_t index : chosen)
            if (std::find(all.begin(), all.end(), index) == all.end()) all.push_back(index);
        std::sort(all.begin(), all.end());
        setListSelection(*box, all);
    } else if (!chosen.empty() || !keep) {
        std::sort(chosen.begin(), chosen.end());
        selectOnly(*box, chosen);
    }
    return static_cast<int32_t>(chosen.size());
}

int32_t Ostrel_MoveBoxEntry(HWND handle, int32_t index, int32_t offset) {
    auto box = boxOf(handle);
    if (!box) return -1;
    int32_t from = resolveIndex(*box, index);
    if (from < 0) return -1;
    int32_t to = static_cast<int32_t>(std::clamp<int64_t>(static_cast<int64_t>(from) + offset, 0, countOf(*box) - 1));
    if (to == from) return from;
    ListEntry moved = entriesOf(*box)[static_cast<std::size_t>(from)];
    bool wasSelected = isSelected(*box, from);
    std::vector<int32_t> selected = box->kind == WindowKind::ListBox ? selectedListEntries(*box) : std::vector<int32_t>{};
    const auto &messages = messagesOf(*box);
    sendMessage(handle, messages.remove, static_cast<WPARAM>(from), 0);
    addEntry(*box, moved.text, moved.data, to);
    // The selection follows the entries: the moved one to its new place, the ones it
    // passed by one step.
    std::vector<int32_t> after;
    for (int32_t s : selected) {
        if (s == from) continue;
        int32_t shifted = s;
        if (from < to && s > from && s <= to) --shifted;
        if (from > to && s >= to && s < from) ++shifted;
        after.push_back(shifted);
    }
    if (wasSelected) after.push_back(to);
    std::sort(after.begin(), after.end());
    if (box->kind == WindowKind::ListBox) setListSelection(*box, after);
    else if (wasSelected) setComboSelection(*box, to);
    return to;
}

} // extern "C"
