// The style names a resource script may use (WS_*, DS_*, BS_*, ES_*, SS_*, LBS_*,
// CBS_*, LVS_*, LVS_EX_*, TCS_*, PBS_*, MB_*) and the control identifier names
// (IDOK, IDCANCEL, IDC_STATIC, ...), with their classic values.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tabra::platform {

// The value of a style name, or nothing when the name is unknown.
std::optional<uint32_t> styleValue(std::string_view name);

// The value of a predefined control identifier name, or nothing.
std::optional<int32_t> controlIdValue(std::string_view name);

} // namespace tabra::platform
