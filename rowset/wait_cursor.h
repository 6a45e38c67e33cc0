// The wait cursor for the length of a scope: shown on construction, the previous
// cursor restored on destruction.
#pragma once

#include "tabra_window.h"

namespace tabra::rowset {

class WaitCursor {
public:
    WaitCursor() : previous_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(previous_); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;

private:
    HCURSOR previous_;
};

} // namespace tabra::rowset
