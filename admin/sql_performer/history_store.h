// Where the SQL performer keeps its statement history: below HKEY_CURRENT_USER in
// "Software\Ostrel Software\Tabra\SqlPerformer\Recent", the number of entries as
// "Total" and the entries, newest first, as "E001", "E002", ... Both performers share
// it. Registry failures are not reported: a missing or damaged store reads as an
// empty history, and a history that cannot be written stays as it was.
#pragma once

#include <string>
#include <vector>

namespace tabra::admin::sql_performer {

// The stored entries "E001" to "E<Total>" that are not blank, in their order. A value
// is read up to 999 characters. A "Total" that is missing, not a number or beyond the
// entries stored counts only the entries there are.
std::vector<std::u16string> readStoredHistory();

// Replaces the whole key by "Total" and the entries, in one change of the store: a
// reader never sees half a history.
void writeStoredHistory(const std::vector<std::u16string> &entries);

} // namespace tabra::admin::sql_performer
