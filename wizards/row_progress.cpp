// The progress indicator of a wizard's rows.
#include "wizards/row_progress.h"

#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "ostrel_ui.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards {
namespace {

constexpr int32_t kTitleCapacity = 200;

} // namespace

RowProgress::RowProgress(int32_t rows) {
    char16_t title[kTitleCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.progressTitle, title, kTitleCapacity);
    indicator_ = Ostrel_CreateProgressIndicator(GetActiveWindow(), title, 0, rows);
}

RowProgress::~RowProgress() {
    if (indicator_ != nullptr) Ostrel_DestroyProgressIndicator(indicator_);
}

bool RowProgress::show(int32_t row) {
    if (indicator_ == nullptr) return false;
    Ostrel_UpdateProgressIndicator(indicator_, row);
    return Ostrel_CheckProgressIndicatorAborted(indicator_) == 1;
}

} // namespace tabra::wizards
