// The first page: where the records come from. The kind chosen switches the later
// pages: a table source goes through its data source and table, a file source through
// the page of its file; the choice is kept in the registry ("Type").
#include "core/module/module_state.h"
#include "ostrel_registry.h"
#include "wizards/import/import_pages.h"

#include <vector>

namespace tabra::wizards::importing {
namespace {

constexpr auto &kPage = ids::kSourceKindPage;
constexpr std::initializer_list<int32_t> kKinds = {kPage.table, kPage.textFile, kPage.sdiFile, kPage.selectionFile};

void showKind(HWND page, ImportWizardState &state) {
    CheckRadioButton(page, kPage.table, kPage.selectionFile, state.sourceKind);
    enableSourcePages(state);
}

void kindClicked(HWND page, ImportWizardState &state, int32_t) {
    state.sourceKind = checkedOf(page, kKinds);
    enableSourcePages(state);
}

dialogs::PageAnswer leave(HWND page, ImportWizardState &state, dialogs::Leaving) {
    state.sourceKind = checkedOf(page, kKinds);
    enableSourcePages(state);
    Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kTypeValue,
                               state.sourceKind);
    return dialogs::PageAnswer::GoOn;
}

constexpr dialogs::Command<ImportWizardState> kCommands[] = {
    {kPage.table, BN_CLICKED, kindClicked},
    {kPage.textFile, BN_CLICKED, kindClicked},
    {kPage.sdiFile, BN_CLICKED, kindClicked},
    {kPage.selectionFile, BN_CLICKED, kindClicked},
};

} // namespace

void enableSourcePages(const ImportWizardState &state) {
    const int32_t kind = state.sourceKind;
    const std::pair<int32_t, bool> pages[] = {
        {ids::kDataSourcePage.id, kind == kPage.table},     {ids::kSourceTablePage.id, kind == kPage.table},
        {ids::kTextFilePage.id, kind == kPage.textFile},    {ids::kSdiFilePage.id, kind == kPage.sdiFile},
        {ids::kSelectionFilePage.id, kind == kPage.selectionFile},
    };
    for (const auto &[id, on] : pages) Wizzard_EnableSubDialog(state.wizard, id, on ? 1 : 0);
}

std::u16string controlText(HWND page, int32_t id, int32_t capacity) {
    std::vector<char16_t> text(static_cast<std::size_t>(capacity), u'\0');
    GetDlgItemTextW(page, id, text.data(), capacity);
    return text.data();
}

int32_t checkedOf(HWND page, std::initializer_list<int32_t> group) {
    for (int32_t id : group)
        if (IsDlgButtonChecked(page, id) == BST_CHECKED) return id;
    return *group.begin();
}

extern const dialogs::Dialog<ImportWizardState> kSourceKindPageDialog{
    .initialise = showKind, .commands = kCommands, .entered = showKind, .left = leave};

} // namespace tabra::wizards::importing
