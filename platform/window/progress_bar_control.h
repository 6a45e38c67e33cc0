// Progress bars: a range and a position.
#pragma once

#include "tabra_base.h"

#include <cstdint>

namespace tabra::window {

struct Window;

struct ProgressBarState {
    int32_t minimum = 0;
    int32_t maximum = 100;
    int32_t position = 0;
    int32_t step = 10;
};

// Handles the PBM_* messages.
bool progressBarMessage(Window &bar, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

} // namespace tabra::window
