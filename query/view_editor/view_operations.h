// What the view editor's dialog needs beyond view_editor.h: the limits of its texts,
// the drop modes, the statement test and the question whether a view exists.
#pragma once

#include "query/view_editor/view_editor.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tabra::query::view_editor {

inline constexpr size_t kNameLength = 99;   // characters of a view's name (and its schema)
inline constexpr size_t kTextLength = 4999; // a CREATE VIEW statement, a stored item, a designer list
inline constexpr char16_t kObjectType[] = u"VIEW"; // the system table's type of the view items

// dropView's mode bits.
inline constexpr int32_t kDropIgnoringErrors = 0x1;  // nothing is shown, the drop always counts
inline constexpr int32_t kDropIgnoringMissing = 0x2; // a view that is not there counts as dropped

// Either bit lets the editor replace the view it was opened on.
inline constexpr int32_t kReplaceFlags = 0x2 | 0x1000000;

// The statement test: the test view "__OSTREL_TEST__" dropped quietly, created with the
// statement (its items written) and dropped again with errors shown (its items
// deleted). 1, or 2 when the view could not be created (then neither it nor its items
// are left behind).
int32_t testView(ViewEditState &state);

// Whether the catalog lists a view of the name in the state's schema.
bool viewExists(const ViewEditState &state, const std::u16string &name);

} // namespace tabra::query::view_editor
