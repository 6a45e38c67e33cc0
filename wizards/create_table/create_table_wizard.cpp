// The create table wizard's entry point and page procedure.
#include "wizards/create_table/create_table_wizard.h"

#include "catalog/table_operations.h"
#include "core/dialogs/wizard_frame.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "ostrel_registry.h"
#include "tabra_wizards.h"

#include <memory>
#include <new>

namespace {

using namespace tabra::wizards::create_table;
namespace module = tabra::module;

constexpr int32_t kPageTable[] = {ids::kModePage.id, ids::kSourcePage.id, ids::kNamePage.id, ids::kClosingPage.id, 0};
// The closing page has no procedure of its own.
constexpr tabra::dialogs::Page<CreateTableWizard> kPages[] = {
    {ids::kModePage.id, &kModePage}, {ids::kSourcePage.id, &kSourcePage}, {ids::kNamePage.id, &kNamePage}};

// The remembered mode (the key column only when none or no mode is stored) and
// source, and the proposed name made unique.
void startFrom(CreateTableWizard &state) {
    const auto &modes = ids::kModePage;
    state.mode = Ostrel_ReadLongFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kModeValue,
                                             modes.keyColumnOnly);
    if (state.mode < modes.keyColumnOnly || state.mode > modes.defaultDefinition) state.mode = modes.keyColumnOnly;
    char16_t text[kNameCapacity] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kSourceValue, u"", text,
                                  kNameCapacity, kNameCapacity - 1);
    state.source = text;
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.defaultTableName, text, kNameCapacity);
    tabra::catalog::makeTableNameUnique(state.connection, text, kNameCapacity);
    state.name = text;
}

} // namespace

extern "C" INT_PTR CreateTableWizzCallback(HWIZZARD wizard, int32_t pageId, HWND page, uint32_t message, WPARAM wParam,
                                           LPARAM lParam) {
    return tabra::dialogs::answerWizardPage<CreateTableWizard>(kPages, wizard, pageId, page, message, wParam, lParam);
}

int32_t tabra::wizards::create_table::runCreateTableWizard(SQLHDBC connection, std::u16string &name) {
    if (connection == SQL_NULL_HDBC) return 2;
    std::unique_ptr<CreateTableWizard> state;
    try {
        state = std::make_unique<CreateTableWizard>();
        state->name.reserve(kNameCapacity);
        state->source.reserve(kNameCapacity);
    } catch (const std::bad_alloc &) {
        ShowMessage(tabra::core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return 2;
    }
    state->connection = connection;
    state->database = &tabra::connection::capabilities(connection);
    startFrom(*state);
    int32_t result = tabra::dialogs::performWizard(kPageTable, CreateTableWizzCallback, *state,
                                                   ids::kPicture.createTable, ids::kString.title);
    if (result != 1 || !createTable(connection, *state->database, state->mode, state->name, state->source)) return 2;
    name = state->name;
    return 1;
}

extern "C" int32_t Tabra_CreateTableWizzard(SQLHDBC connection, char16_t *nameBuffer, int32_t nameSize) {
    std::u16string name;
    if (runCreateTableWizard(connection, name) != 1) return 2;
    OstrelCopyString(nameBuffer, name.c_str(), nameSize);
    return 1;
}
