// The SQL performer's history list: the statements run last, newest at the top, each
// in its one-line encoded form (Ostrel_EncodeString, mode 0), so that a statement with
// line breaks is one entry and equal statements are equal entries. The list is what
// the registry holds (history_store.h): every change is saved at once.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::admin::sql_performer {

// The most entries the history keeps after an addition.
inline constexpr int32_t kHistoryLimit = 20;
// A statement and an encoded entry both fit buffers of this many characters.
inline constexpr int32_t kStatementCapacity = 1000;

// Fills the list with the stored history and selects the newest entry.
void loadHistory(HWND list);
// Stores the list's entries as the history.
void saveHistory(HWND list);
// Puts a statement at the top: a blank one is left out, an entry equal to it moves up
// rather than appearing twice, and entries beyond the limit are dropped. The top is
// selected and the history saved. A statement whose encoded form does not fit an entry
// is run without being kept.
void addToHistory(HWND list, std::u16string_view statement);
// Empties the list and the stored history.
void clearHistory(HWND list);
// The selected entry decoded to the statement it stands for; empty when none is selected.
std::u16string selectedStatement(HWND list);

} // namespace tabra::admin::sql_performer
