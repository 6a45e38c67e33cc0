// The history list through the in-house box calls; the registry side is history_store.
#include "admin/sql_performer/statement_history.h"

#include "admin/sql_performer/history_store.h"
#include "ostrel.h"
#include "platform/text/bounded_text.h"

#include <vector>

namespace tabra::admin::sql_performer {

void loadHistory(HWND list) {
    Ostrel_ResetBox(list);
    for (const std::u16string &entry : readStoredHistory()) Ostrel_AddBoxEntry(list, entry.c_str(), 0, -1, 0);
    Ostrel_SetBoxIndex(list, 0);
}

void saveHistory(HWND list) {
    std::vector<std::u16string> entries;
    char16_t entry[kStatementCapacity];
    const int32_t count = Ostrel_GetBoxCount(list);
    for (int32_t position = 0; position < count; ++position)
        if (Ostrel_GetBoxEntry(list, position, entry, kStatementCapacity) >= 0) entries.emplace_back(entry);
    writeStoredHistory(entries);
}

void addToHistory(HWND list, std::u16string_view statement) {
    if (platform::isBlank(statement)) return;
    const std::u16string text(statement);
    char16_t encoded[kStatementCapacity];
    if (Ostrel_EncodeString(text.c_str(), encoded, kStatementCapacity, OSTREL_ENCODE_GENERAL) < 0) return;
    const int32_t equal = Ostrel_FindBoxEntry(list, encoded, 0, 0);
    if (equal >= 0) Ostrel_DeleteBoxEntry(list, equal);
    Ostrel_AddBoxEntry(list, encoded, 0, 0, 0);
    while (Ostrel_GetBoxCount(list) > kHistoryLimit)
        if (Ostrel_DeleteBoxEntry(list, kHistoryLimit) < 0) break;
    Ostrel_SetBoxIndex(list, 0);
    saveHistory(list);
}

void clearHistory(HWND list) {
    Ostrel_ResetBox(list);
    saveHistory(list);
}

std::u16string selectedStatement(HWND list) {
    char16_t entry[kStatementCapacity];
    if (Ostrel_GetBoxEntry(list, -1, entry, kStatementCapacity) < 0) return {};
    Ostrel_DecodeString(entry);
    return entry;
}

} // namespace tabra::admin::sql_performer
