// The progress indicator of a row-set file: shown when the caller expects more than
// 100 rows and asked for it; its text is the translated format "%d of %d" filled with
// the records written and the records expected. The user may abort.
#pragma once

#include "tabra_base.h"

#include <cstdint>

namespace tabra::rowset {

class RowSetProgress {
public:
    // Shows the indicator over the active window when show is set and expected > 100.
    RowSetProgress(bool show, int32_t expected);
    ~RowSetProgress();
    RowSetProgress(const RowSetProgress &) = delete;
    RowSetProgress &operator=(const RowSetProgress &) = delete;

    bool shown() const { return indicator_ != nullptr; }
    // Shows that written records are done; true when the user has aborted.
    bool update(int32_t written);

private:
    HWND indicator_ = nullptr;
    int32_t expected_;
    char16_t format_[100] = {};
};

} // namespace tabra::rowset
