// Entry messages shared by list boxes and combo boxes. Inserting announces the new
// entry to the renderer; changing item data announces the entry as changed.
#include "platform/window/box_entries.h"

#include "platform/text/case_folding.h"
#include "platform/window/message_dispatch.h"

#include <algorithm>

namespace tabra::window {
namespace {

bool startsWithIgnoringCase(std::u16string_view text, std::u16string_view prefix) {
    return text.size() >= prefix.size() && platform::equalIgnoringCase(text.substr(0, prefix.size()), prefix);
}

int32_t insertEntry(Window &box, EntryList list, int32_t position, std::u16string text) {
    list.entries.insert(list.entries.begin() + position, ListEntry{std::move(text), 0, false});
    if (list.current >= position) ++list.current;
    announce(box, Change::EntryInserted, position);
    return position;
}

} // namespace

int32_t findListEntry(const std::vector<ListEntry> &entries, std::u16string_view text, int32_t start, bool exact) {
    auto count = static_cast<int32_t>(entries.size());
    if (count == 0) return -1;
    int32_t first = (start < 0 || start >= count) ? 0 : start + 1;
    for (int32_t n = 0; n < count; ++n) {
        int32_t i = (first + n) % count;
        const auto &entry = entries[static_cast<std::size_t>(i)].text;
        if (exact ? platform::equalIgnoringCase(entry, text) : startsWithIgnoringCase(entry, text)) return i;
    }
    return -1;
}

int32_t sortedPosition(const std::vector<ListEntry> &entries, std::u16string_view text) {
    std::u16string key = platform::foldedCopy(text);
    auto after = std::upper_bound(entries.begin(), entries.end(), key, [](const std::u16string &wanted, const ListEntry &entry) {
        return wanted < platform::foldedCopy(entry.text);
    });
    return static_cast<int32_t>(after - entries.begin());
}

bool validEntryIndex(const std::vector<ListEntry> &entries, intptr_t index) {
    return index >= 0 && index < static_cast<intptr_t>(entries.size());
}

bool entryListMessage(Window &box, EntryList list, const EntryMessageSet &set, uint32_t message, WPARAM wParam,
                      LPARAM lParam, LRESULT &result) {
    auto index = static_cast<intptr_t>(wParam);
    auto count = static_cast<int32_t>(list.entries.size());
    bool valid = validEntryIndex(list.entries, index);
    const ListEntry *entry = valid ? &list.entries[static_cast<std::size_t>(index)] : nullptr;
    if (message == set.add) {
        std::u16string text = textFromParameter(lParam);
        int32_t position = list.sorted ? sortedPosition(list.entries, text) : count;
        result = insertEntry(box, list, position, std::move(text));
    } else if (message == set.insert) {
        if (index == -1) index = count;
        result = (index < 0 || index > count)
                     ? set.error
                     : insertEntry(box, list, static_cast<int32_t>(index), textFromParameter(lParam));
    } else if (message == set.count) {
        result = count;
    } else if (message == set.getText) {
        if (entry) {
            if (auto *buffer = reinterpret_cast<char16_t *>(lParam)) {
                entry->text.copy(buffer, entry->text.size());
                buffer[entry->text.size()] = 0;
            }
        }
        result = entry ? static_cast<LRESULT>(entry->text.size()) : set.error;
    } else if (message == set.getTextLength) {
        result = entry ? static_cast<LRESULT>(entry->text.size()) : set.error;
    } else if (message == set.getData) {
        result = entry ? entry->data : set.error;
    } else if (message == set.setData) {
        if (entry) {
            list.entries[static_cast<std::size_t>(index)].data = lParam;
            announce(box, Change::EntryChanged, static_cast<int32_t>(index));
        }
        result = entry ? 0 : set.error;
    } else if (message == set.find || message == set.findExact) {
        result = findListEntry(list.entries, textFromParameter(lParam), static_cast<int32_t>(index),
                               message == set.findExact);
    } else {
        return false;
    }
    return true;
}

} // namespace tabra::window
