// The export's progress indicator: over the active window, titled with the export file
// filter's description, from 0 to the number of records to write, with an abort
// button. It moves to the number of the row just written the first time, after the
// last row and otherwise a few times a second: a row costs a counter, the clock is
// read every few dozen rows, and an abort is seen within a twentieth of a second.
#pragma once

#include "tabra_base.h"

#include <chrono>
#include <cstdint>

namespace tabra::wizards::exporting {

class ExportProgress {
public:
    explicit ExportProgress(int32_t records);
    ~ExportProgress();
    ExportProgress(const ExportProgress &) = delete;
    ExportProgress &operator=(const ExportProgress &) = delete;

    // Row number row (1, 2, ...) has been written; true when the user has aborted.
    bool rowWritten(int32_t row);

private:
    HWND indicator_ = nullptr;
    int32_t records_;
    uint32_t rowsSinceClock_ = 0;
    std::chrono::steady_clock::time_point next_{};
};

} // namespace tabra::wizards::exporting
