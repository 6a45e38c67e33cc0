// The export wizard: its state, the page table handed to the wizard frame, and the
// file written once the user has finished the last page.
#include "core/dialogs/wizard_frame.h"
#include "core/module/module_state.h"
#include "wizards/wizard_state.h"
#include "core/resource_ids.h"
#include "ostrel_registry.h"
#include "platform/text/bounded_text.h"
#include "tabra_wizards.h"
#include "wizards/export/export_file.h"
#include "wizards/export/export_wizard.h"
#include "wizards/export/export_pages.h"

#include <memory>
#include <new>

namespace tabra::wizards::exporting {

std::u16string ExportWizardState::table() const {
    return std::u16string(platform::viewOfBuffer(object.DbObjectName, kTableNameCapacity));
}

namespace {

// The pages in the order they are shown: table, fields, conditions, file, summary.
constexpr int32_t kPageTable[] = {ids::kTablePage.id,     ids::kFieldsPage.id,  ids::kConditionPage.id,
                                  ids::kFilePage.id,      ids::kSummaryPage.id, 0};
constexpr dialogs::Page<ExportWizardState> kPages[] = {
    {ids::kTablePage.id, &kTablePageDialog},         {ids::kFieldsPage.id, &kFieldsPageDialog},
    {ids::kConditionPage.id, &kConditionPageDialog}, {ids::kFilePage.id, &kFilePageDialog},
    {ids::kSummaryPage.id, &kSummaryPageDialog},
};

} // namespace

} // namespace tabra::wizards::exporting

using namespace tabra::wizards::exporting;

extern "C" INT_PTR ExportWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                      LPARAM lParam) {
    return tabra::dialogs::answerWizardPage<ExportWizardState>(kPages, wizard, pageId, page, message, wParam, lParam);
}

int32_t tabra::wizards::exporting::runExportWizard(SQLHDBC connection, DbObjectInfo *parameterBlock,
                                                   int32_t callerValue) {
    if (parameterBlock == nullptr) return 2;
    auto state = tabra::wizards::newWizardState<ExportWizardState>();
    if (!state) return 2;
    state->connection = connection;
    state->object = *parameterBlock;
    state->callerValue = callerValue;
    char16_t fileName[kFileNameCapacity] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, kRegistryKey, kFileNameValue,
                                  u"", fileName, kFileNameCapacity, kFileNameCapacity - 1);
    state->fileName = fileName;
    if (tabra::dialogs::performWizard(kPageTable, ExportWizzCallback, *state, ids::kWizardPicture,
                                      ids::kString.wizardTitle) != 1)
        return 2;
    if (writeExportFile(*state) != 1) return 2;
    *parameterBlock = state->object;
    return 1;
}

extern "C" int32_t Tabra_ExportWizzard(SQLHDBC connection, DbObjectInfo *parameterBlock, int32_t callerValue) {
    return runExportWizard(connection, parameterBlock, callerValue);
}
