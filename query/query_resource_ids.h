// Resource ids of the selection and query building family: messages, dialog templates
// and the texts the dialogs load. Labels of the operator, join and comparison tables
// are kept in their tables' entries.
#pragma once

#include <cstdint>

namespace tabra::query {

inline constexpr int32_t kOutOfMemoryMessage = 1600;
inline constexpr int32_t kNotAMaskMessage = 1649;    // not a mask file, or unreadable (%1 the file)
inline constexpr int32_t kMaskWriteMessage = 1650;   // the mask file was not written whole (%1)
inline constexpr int32_t kStatementValidMessage = 1706; // the designer's statement test passed

inline constexpr int32_t kDesignerDialogTemplate = 10064;

} // namespace tabra::query
