// Progress of a row-set file.
#include "rowset/row_set_progress.h"

#include "catalog/resource_ids.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel_ui.h"
#include "tabra_window.h"

#include <string>

namespace tabra::rowset {

namespace {

constexpr int32_t kShowAbove = 100;

// The format with each "%d" replaced by the next number ("%%" is one "%").
std::u16string formatted(const char16_t *format, int32_t first, int32_t second) {
    const int32_t numbers[] = {first, second};
    std::size_t next = 0;
    std::u16string text;
    for (const char16_t *c = format; *c != u'\0'; ++c) {
        if (c[0] == u'%' && c[1] == u'%') {
            text.push_back(u'%');
            ++c;
        } else if (c[0] == u'%' && c[1] == u'd' && next < 2) {
            for (char digit : std::to_string(numbers[next++])) text.push_back(static_cast<char16_t>(digit));
            ++c;
        } else {
            text.push_back(*c);
        }
    }
    return text;
}

} // namespace

RowSetProgress::RowSetProgress(bool show, int32_t expected) : expected_(expected) {
    if (!show || expected <= kShowAbove) return;
    module::LoadTranslatedString(module::resourceLibrary(), catalog::ids::kString.rowSetProgress, format_, 100);
    char16_t title[100] = {};
    module::LoadTranslatedString(module::resourceLibrary(), core::ids::kString.caption, title, 100);
    indicator_ = Ostrel_CreateProgressIndicatorExtended(GetActiveWindow(), title, formatted(format_, 0, expected).c_str(),
                                                        0, expected, 0);
}

RowSetProgress::~RowSetProgress() {
    if (indicator_ != nullptr) Ostrel_DestroyProgressIndicator(indicator_);
}

bool RowSetProgress::update(int32_t written) {
    if (indicator_ == nullptr) return false;
    Ostrel_SetProgressIndicatorText(indicator_, formatted(format_, written, expected_).c_str());
    Ostrel_UpdateProgressIndicator(indicator_, written);
    return Ostrel_CheckProgressIndicatorAborted(indicator_) == 1;
}

} // namespace tabra::rowset
