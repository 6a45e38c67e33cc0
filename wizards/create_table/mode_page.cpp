// The mode page of the create table wizard: a radio button per way of making the
// table, the ways the database cannot do disabled.
#include "ostrel_registry.h"
#include "wizards/create_table/create_table_wizard.h"

namespace tabra::wizards::create_table {
namespace {

const auto &kButtons = ids::kModePage;

// Checks the stored mode. A mode the database cannot do gives way to the default
// definition, which every database can make (and which the design presets where
// there is no auto-increment column).
void showMode(HWND page, CreateTableWizard &state) {
    for (int32_t mode : {kButtons.keyColumnOnly, kButtons.copyStructure, kButtons.defaultDefinition})
        EnableWindow(GetDlgItem(page, mode), modeSupported(*state.database, mode));
    int32_t shown = modeSupported(*state.database, state.mode) ? state.mode : kButtons.defaultDefinition;
    CheckRadioButton(page, kButtons.keyColumnOnly, kButtons.defaultDefinition, shown);
}

// Either way: the first checked button is the mode (the first if none is), the source
// page is shown only for a copy, and the mode is remembered.
dialogs::PageAnswer leaveMode(HWND page, CreateTableWizard &state, dialogs::Leaving) {
    state.mode = kButtons.keyColumnOnly;
    for (int32_t mode : {kButtons.keyColumnOnly, kButtons.copyStructure, kButtons.defaultDefinition}) {
        if (IsDlgButtonChecked(page, mode) != BST_CHECKED) continue;
        state.mode = mode;
        break;
    }
    Wizzard_EnableSubDialog(state.wizard, ids::kSourcePage.id, state.mode == kButtons.copyStructure);
    Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kModeValue, state.mode);
    return dialogs::PageAnswer::GoOn;
}

} // namespace

constinit const dialogs::Dialog<CreateTableWizard> kModePage{.entered = showMode, .left = leaveMode};

} // namespace tabra::wizards::create_table
