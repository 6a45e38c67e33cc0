// The summary, confirmation and result pages of the update and delete records wizards.
#include "wizards/records/count_pages.h"

#include "core/module/module_state.h"
#include "platform/text/bounded_text.h"
#include "platform/text/number_format.h"
#include "wizards/records/records_statement.h"
#include "wizards/records/resource_ids.h"
#include "wizards/records/selected_records.h"

namespace tabra::wizards::records {

namespace {

constexpr int32_t kCountTextCapacity = 200;

// String stringId with the count in its "%d", as 200 characters hold it, in control.
void showCount(HWND page, int32_t control, int32_t stringId, int32_t count) {
    char16_t format[kCountTextCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), stringId, format, kCountTextCapacity);
    std::u16string text = platform::withNumbers(format, {count});
    SetDlgItemTextW(page, control, std::u16string(platform::boundedPrefix(text, kCountTextCapacity)).c_str());
}

// The first count decides the text, the second gives its number.
void showSummary(HWND page, RecordsWizard &state) {
    if (countSelectedRecords(state) < 1)
        showCount(page, ids::kSummaryPage.summary, ids::kString.noRecordToDelete, 0);
    else
        showCount(page, ids::kSummaryPage.summary, ids::kString.recordsToDelete, countSelectedRecords(state));
}

void showConfirmation(HWND page, RecordsWizard &state) {
    showCount(page, ids::kConfirmationPage.confirmation, ids::kString.recordsToUpdate, state.count);
}

dialogs::PageAnswer runUpdate(HWND, RecordsWizard &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back || runRecordsStatement(state)) return dialogs::PageAnswer::GoOn;
    return dialogs::PageAnswer::Stay;
}

// The update has run: the pages before are switched off, so that Back cannot run it
// a second time.
void showResult(HWND page, RecordsWizard &state) {
    showCount(page, ids::kResultPage.result, ids::kString.recordsUpdated, state.count);
    for (int32_t done : {ids::kUpdateTablePage.id, ids::kUpdateConditionPage.id, ids::kAssignmentPage.id,
                         ids::kConfirmationPage.id})
        Wizzard_EnableSubDialog(state.wizard, done, 0);
}

} // namespace

constinit const dialogs::Dialog<RecordsWizard> kSummaryPage{.entered = showSummary};
constinit const dialogs::Dialog<RecordsWizard> kConfirmationPage{.entered = showConfirmation, .left = runUpdate};
constinit const dialogs::Dialog<RecordsWizard> kResultPage{.entered = showResult};

} // namespace tabra::wizards::records
