// The entry list that list boxes and combo boxes share, and the messages both answer
// the same way over it, each kind of box in its own message numbers.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::window {

struct Window;

struct ListEntry {
    std::u16string text;
    LPARAM data = 0;
    bool selected = false; // used by multiple-selection lists
};

// Index of the first entry at or after start whose text equals (exact) or begins with
// (prefix) text, ignoring case as Win32 does; searching wraps once around; -1 if none.
int32_t findListEntry(const std::vector<ListEntry> &entries, std::u16string_view text, int32_t start, bool exact);
// Index at which a sorted list inserts text (after equal texts).
int32_t sortedPosition(const std::vector<ListEntry> &entries, std::u16string_view text);

bool validEntryIndex(const std::vector<ListEntry> &entries, intptr_t index);

// One kind of box's numbers for the entry messages, and its error answer.
struct EntryMessageSet {
    uint32_t add, insert, count, getText, getTextLength, getData, setData, find, findExact;
    LRESULT error;
};

// The entries of one box and its current entry, which moves with insertions.
struct EntryList {
    std::vector<ListEntry> &entries;
    int32_t &current;
    bool sorted; // add inserts in order of the folded texts
};

// Answers message if it is one of the set's entry messages (add, insert, count, get
// text and its length, get and set item data, find); false for any other message.
bool entryListMessage(Window &box, EntryList list, const EntryMessageSet &set, uint32_t message, WPARAM wParam,
                      LPARAM lParam, LRESULT &result);

} // namespace tabra::window
