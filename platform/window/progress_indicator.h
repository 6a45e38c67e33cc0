// The progress indicator window: a title (Window::text), a line of text, a range, a
// position and an abort button the user may press.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>

namespace tabra::window {

struct ProgressIndicatorState {
    HWND owner = nullptr;
    std::u16string line;
    int32_t minimum = 0;
    int32_t maximum = 0;
    int32_t position = 0;
    bool abortable = true;
    bool aborted = false;
};

} // namespace tabra::window
