// The delete records wizard: table, condition, summary; Finish deletes the records.
#include "core/dialogs/wizard_frame.h"
#include "tabra_wizards.h"
#include "wizards/records/condition_page.h"
#include "wizards/records/count_pages.h"
#include "wizards/records/resource_ids.h"
#include "wizards/records/table_page.h"

namespace {

using namespace tabra::wizards::records;

constexpr int32_t kPageTable[] = {ids::kDeleteTablePage.id, ids::kDeleteConditionPage.id, ids::kSummaryPage.id, 0};
constexpr tabra::dialogs::Page<RecordsWizard> kPages[] = {{ids::kDeleteTablePage.id, &kTablePage},
                                                          {ids::kDeleteConditionPage.id, &kDeleteConditionPage},
                                                          {ids::kSummaryPage.id, &kSummaryPage}};

} // namespace

extern "C" INT_PTR DelRecsWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                       LPARAM lParam) {
    return tabra::dialogs::answerWizardPage<RecordsWizard>(kPages, wizard, pageId, page, message, wParam, lParam);
}

int32_t tabra::wizards::records::runDeleteRecordsWizard(SQLHDBC connection, DbObjectInfo *object, int32_t callerValue) {
    return runRecordsWizard(Operation::Delete, connection, object, callerValue, kPageTable, DelRecsWizzCallback);
}

extern "C" int32_t Tabra_DeleteRecordsWizzard(SQLHDBC connection, DbObjectInfo *objectRecord, int32_t callerValue) {
    return runDeleteRecordsWizard(connection, objectRecord, callerValue);
}
