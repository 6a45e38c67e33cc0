// The update records wizard: table, condition, assignments, confirmation (leaving it
// updates the records) and result.
#include "core/dialogs/wizard_frame.h"
#include "tabra_wizards.h"
#include "wizards/records/assignment_page.h"
#include "wizards/records/condition_page.h"
#include "wizards/records/count_pages.h"
#include "wizards/records/resource_ids.h"
#include "wizards/records/table_page.h"

namespace {

using namespace tabra::wizards::records;

constexpr int32_t kPageTable[] = {ids::kUpdateTablePage.id, ids::kUpdateConditionPage.id, ids::kAssignmentPage.id,
                                  ids::kConfirmationPage.id, ids::kResultPage.id, 0};
constexpr tabra::dialogs::Page<RecordsWizard> kPages[] = {{ids::kUpdateTablePage.id, &kTablePage},
                                                          {ids::kUpdateConditionPage.id, &kUpdateConditionPage},
                                                          {ids::kAssignmentPage.id, &kAssignmentPage},
                                                          {ids::kConfirmationPage.id, &kConfirmationPage},
                                                          {ids::kResultPage.id, &kResultPage}};

} // namespace

extern "C" INT_PTR UpdRecsWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                       LPARAM lParam) {
    return tabra::dialogs::answerWizardPage<RecordsWizard>(kPages, wizard, pageId, page, message, wParam, lParam);
}

int32_t tabra::wizards::records::runUpdateRecordsWizard(SQLHDBC connection, DbObjectInfo *object, int32_t callerValue) {
    return runRecordsWizard(Operation::Update, connection, object, callerValue, kPageTable, UpdRecsWizzCallback);
}

extern "C" int32_t Tabra_UpdateRecordsWizzard(SQLHDBC connection, DbObjectInfo *objectRecord, int32_t callerValue) {
    return runUpdateRecordsWizard(connection, objectRecord, callerValue);
}
