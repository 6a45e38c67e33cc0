// The progress indicator over the active window while a wizard writes its rows (title
// string 2901, range the number of rows), destroyed with the object.
#pragma once

#include "tabra_window.h"

#include <cstdint>

namespace tabra::wizards {

class RowProgress {
public:
    explicit RowProgress(int32_t rows);
    ~RowProgress();
    RowProgress(const RowProgress &) = delete;
    RowProgress &operator=(const RowProgress &) = delete;
    // Shows the row; true when the user has aborted.
    bool show(int32_t row);

private:
    HWND indicator_ = nullptr;
};

} // namespace tabra::wizards
