// Progress of a row-set file.
#include "rowset/row_set_progress.h"

#include "catalog/resource_ids.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel_ui.h"
#include "platform/text/number_format.h"
#include "tabra_window.h"

#include <string>

namespace tabra::rowset {

namespace {

constexpr int32_t kShowAbove = 100;

} // namespace

RowSetProgress::RowSetProgress(bool show, int32_t expected) : expected_(expected) {
    if (!show || expected <= kShowAbove) return;
    module::LoadTranslatedString(module::resourceLibrary(), catalog::ids::kString.rowSetProgress, format_, 100);
    char16_t title[100] = {};
    module::LoadTranslatedString(module::resourceLibrary(), core::ids::kString.caption, title, 100);
    indicator_ = Ostrel_CreateProgressIndicatorExtended(GetActiveWindow(), title, platform::withNumbers(format_, {0, expected}).c_str(),
                                                        0, expected, 0);
}

RowSetProgress::~RowSetProgress() {
    if (indicator_ != nullptr) Ostrel_DestroyProgressIndicator(indicator_);
}

bool RowSetProgress::update(int32_t written) {
    if (indicator_ == nullptr) return false;
    Ostrel_SetProgressIndicatorText(indicator_, platform::withNumbers(format_, {written, expected_}).c_str());
    Ostrel_UpdateProgressIndicator(indicator_, written);
    return Ostrel_CheckProgressIndicatorAborted(indicator_) == 1;
}

} // namespace tabra::rowset
