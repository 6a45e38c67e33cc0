// The add records wizard: its state with the choices kept in the registry, the page
// table handed to the wizard frame, and the copy once the user has finished it.
#include "wizards/add_records/add_records_wizard.h"

#include "core/dialogs/wizard_frame.h"
#include "core/module/module_state.h"
#include "wizards/add_records/add_records_copy.h"
#include "wizards/add_records/add_records_pages.h"
#include "wizards/wizard_state.h"


namespace tabra::wizards::add_records {
namespace {

constexpr int32_t kPageTable[] = {ids::kDestinationTablePage.id, ids::kDataSourcePage.id, ids::kSourceTablePage.id,
                                  ids::kMappingPage.id,          ids::kIdPage.id,         ids::kSummaryPage.id,
                                  0};
constexpr dialogs::Page<AddRecordsWizardState> kPages[] = {
    {ids::kDestinationTablePage.id, &kDestinationTablePageDialog}, {ids::kDataSourcePage.id, &kDataSourcePageDialog},
    {ids::kSourceTablePage.id, &kSourceTablePageDialog},           {ids::kMappingPage.id, &kMappingPageDialog},
    {ids::kIdPage.id, &kIdPageDialog},                             {ids::kSummaryPage.id, &kSummaryPageDialog},
};

void readChoices(AddRecordsWizardState &state) {
    Tabra_ReadDataSourceFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, nullptr,
                                     &state.sourceRecord);
    state.sourceTable = readWizardString(kRegistryKey, kTableValue, kTableNameCapacity);
    state.sourceIdField = readWizardString(kRegistryKey, kSourceIdValue, kIdFieldCapacity);
    state.destinationIdField = readWizardString(kRegistryKey, kDestinationIdValue, kIdFieldCapacity);
}

} // namespace

int32_t runAddRecordsWizard(SQLHDBC connection, DbObjectInfo *parameterBlock) {
    auto state = newWizardState<AddRecordsWizardState>();
    if (!state) return 2;
    state->connection = connection;
    if (parameterBlock != nullptr) state->object = *parameterBlock;
    readChoices(*state);
    if (dialogs::performWizard(kPageTable, AddRecsWizzCallback, *state, ids::kWizardPicture,
                               ids::kString.wizardTitle) != 1)
        return 2;
    const CopyOutcome outcome = runCopy(*state);
    state->source.close();
    if (outcome.result == 1 && parameterBlock != nullptr) *parameterBlock = state->object;
    return outcome.result;
}

} // namespace tabra::wizards::add_records

using namespace tabra::wizards::add_records;

extern "C" INT_PTR AddRecsWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                       LPARAM lParam) {
    return tabra::dialogs::answerWizardPage<AddRecordsWizardState>(kPages, wizard, pageId, page, message, wParam,
                                                                   lParam);
}

extern "C" int32_t Tabra_AddRecordsWizzard(SQLHDBC connection, DbObjectInfo *parameterBlock) {
    return runAddRecordsWizard(connection, parameterBlock);
}
