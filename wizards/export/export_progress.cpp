// The export's progress indicator.
#include "wizards/export/export_progress.h"

#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "ostrel_ui.h"
#include "tabra_window.h"
#include "wizards/export/resource_ids.h"

#include <string_view>

namespace tabra::wizards::exporting {
namespace {

constexpr int32_t kTitleCapacity = 300;
constexpr uint32_t kRowsPerClockReading = 64;
constexpr auto kInterval = std::chrono::milliseconds(50);

} // namespace

ExportProgress::ExportProgress(int32_t records) : records_(records) {
    char16_t filter[kTitleCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.fileFilter, filter, kTitleCapacity);
    // The filter is "description|pattern|...": its first description titles the indicator.
    std::u16string title(std::u16string_view(filter).substr(0, std::u16string_view(filter).find(u'|')));
    indicator_ = Ostrel_CreateProgressIndicator(GetActiveWindow(), title.c_str(), 0, records);
}

ExportProgress::~ExportProgress() {
    if (indicator_ != nullptr) Ostrel_DestroyProgressIndicator(indicator_);
}

bool ExportProgress::rowWritten(int32_t row) {
    if (indicator_ == nullptr) return false;
    bool due = row == 1 || row == records_;
    if (!due && ++rowsSinceClock_ >= kRowsPerClockReading) {
        rowsSinceClock_ = 0;
        due = std::chrono::steady_clock::now() >= next_;
    }
    if (!due) return false;
    next_ = std::chrono::steady_clock::now() + kInterval;
    Ostrel_UpdateProgressIndicator(indicator_, row);
    return Ostrel_CheckProgressIndicatorAborted(indicator_) == 1;
}

} // namespace tabra::wizards::exporting
