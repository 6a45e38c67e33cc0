// The import wizard: its state with the choices kept in the registry, the page table
// handed to the wizard frame, and the import run once the user has finished it.
#include "core/dialogs/wizard_frame.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel_registry.h"
#include "platform/text/bounded_text.h"
#include "tabra_wizards.h"
#include "wizards/import/import_pages.h"
#include "wizards/import/import_wizard.h"
#include "wizards/import/import_run.h"
#include "wizards/wizard_state.h"

#include <memory>
#include <new>

namespace tabra::wizards::importing {
namespace {

// The pages in the order of the frame; the source kind switches its pages on and off.
constexpr int32_t kPageTable[] = {ids::kSourceKindPage.id,     ids::kSdiFilePage.id,    ids::kSelectionFilePage.id,
                                  ids::kTextFilePage.id,       ids::kDataSourcePage.id, ids::kSourceTablePage.id,
                                  ids::kMappingPage.id,        ids::kDestinationPage.id, ids::kClosingPage.id,
                                  0};
constexpr dialogs::Page<ImportWizardState> kPages[] = {
    {ids::kSourceKindPage.id, &kSourceKindPageDialog},   {ids::kSdiFilePage.id, &kSdiFilePageDialog},
    {ids::kSelectionFilePage.id, &kSelectionFilePageDialog}, {ids::kTextFilePage.id, &kTextFilePageDialog},
    {ids::kDataSourcePage.id, &kDataSourcePageDialog},   {ids::kSourceTablePage.id, &kSourceTablePageDialog},
    {ids::kMappingPage.id, &kMappingPageDialog},         {ids::kDestinationPage.id, &kDestinationPageDialog},
};

// The last choices: the source kind, the files, the data source and its table.
void readChoices(ImportWizardState &state) {
    const auto &kinds = ids::kSourceKindPage;
    int32_t kind = Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kTypeValue,
                                               kinds.table);
    state.sourceKind = kind >= kinds.table && kind <= kinds.selectionFile ? kind : kinds.table;
    state.textFile = readWizardString(kRegistryKey, kTextFileValue, kFileNameCapacity);
    state.sdiFile = readWizardString(kRegistryKey, kSdiFileValue, kFileNameCapacity);
    state.selectionFile = readWizardString(kRegistryKey, kSelectionFileValue, kFileNameCapacity);
    state.sourceTable = readWizardString(kRegistryKey, kTableValue, kTableNameCapacity);
    Tabra_ReadDataSourceFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, nullptr,
                                     &state.sourceRecord);
    state.converter = TelFaxSettings::fromRegistry();
}

} // namespace

} // namespace tabra::wizards::importing

using namespace tabra::wizards::importing;

extern "C" INT_PTR ImportWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                      LPARAM lParam) {
    return tabra::dialogs::answerWizardPage<ImportWizardState>(kPages, wizard, pageId, page, message, wParam, lParam);
}

int32_t tabra::wizards::importing::runImportWizard(SQLHDBC connection, std::u16string &table) {
    auto state = tabra::wizards::newWizardState<ImportWizardState>();
    if (!state) return 2;
    state->connection = connection;
    readChoices(*state);
    if (tabra::dialogs::performWizard(kPageTable, ImportWizzCallback, *state, ids::kWizardPicture,
                                      ids::kString.wizardTitle, WIZZARD_SHOW_STEP) != 1)
        return 2;
    ImportOutcome outcome = runImport(*state);
    if (outcome.result == 1) table = state->table;
    return outcome.result;
}

extern "C" int32_t Tabra_ImportTableWizzard(SQLHDBC connection, char16_t *tableName, int32_t capacity) {
    std::u16string table;
    int32_t result = runImportWizard(connection, table);
    if (result == 1 && tableName != nullptr && capacity >= 1) tabra::platform::writeBounded(tableName, capacity, table);
    return result;
}
