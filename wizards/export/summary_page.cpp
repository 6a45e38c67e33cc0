// Page 5 of the export wizard: how many records will be written.
#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "platform/window/message_box.h"
#include "wizards/export/export_pages.h"

#include <string>

namespace tabra::wizards::exporting {
namespace {

constexpr int32_t kSummaryCapacity = 200;

void showSummary(HWND page, ExportWizardState &state) {
    char16_t format[kSummaryCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.summary, format, kSummaryCapacity);
    std::string digits = std::to_string(state.recordCount);
    std::u16string count(digits.begin(), digits.end());
    std::u16string text = window::formatMessageText(format, count.c_str(), nullptr, nullptr);
    text.resize(std::min<std::size_t>(text.size(), kSummaryCapacity - 1));
    SetDlgItemTextW(page, ids::kSummaryPage.text, text.c_str());
}

} // namespace

extern const dialogs::Dialog<ExportWizardState> kSummaryPageDialog{.entered = showSummary};

} // namespace tabra::wizards::exporting
