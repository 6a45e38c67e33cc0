// The pages of the SDI and selection files, and what every file page shares: the file
// name, the browse button, and leaving forward, which reads the file's fields.
#include "core/module/module_state.h"
#include "core/module/translated_string.h"
#include "ostrel_registry.h"
#include "ostrel_text.h"
#include "ostrel_ui.h"
#include "wizards/import/import_pages.h"
#include "wizards/import/import_source.h"

namespace tabra::wizards::importing {
namespace {

constexpr int32_t kKindsCapacity = 300;

void sdiFileChanged(HWND page, ImportWizardState &state, int32_t id) {
    state.sdiFile = controlText(page, id, kFileNameCapacity);
}
void selectionFileChanged(HWND page, ImportWizardState &state, int32_t id) {
    state.selectionFile = controlText(page, id, kFileNameCapacity);
}

void browseSdiFile(HWND page, ImportWizardState &, int32_t) { browseForFile(page, ids::kString.sdiFileFilter); }
void browseSelectionFile(HWND page, ImportWizardState &, int32_t) {
    browseForFile(page, ids::kString.selectionFileFilter);
}

void showSdiFile(HWND page, ImportWizardState &state) {
    showFileName(page, state.sdiFile);
    CheckDlgButton(page, ids::kSdiFilePage.converter, state.converter.on ? BST_CHECKED : BST_UNCHECKED);
    char16_t format[kKindsCapacity] = {}, kinds[kKindsCapacity] = {};
    module::LoadTranslatedString(module::resourceLibrary(), ids::kString.converterKinds, format, kKindsCapacity);
    OstrelCopyString(kinds, format, kKindsCapacity);
    Ostrel_Replace(kinds, kKindsCapacity, u"%1", state.converter.keywords.c_str(), 0);
    SetDlgItemTextW(page, ids::kSdiFilePage.kinds, kinds);
}

void converterClicked(HWND page, ImportWizardState &state, int32_t) {
    state.converter.on = IsDlgButtonChecked(page, ids::kSdiFilePage.converter) == BST_CHECKED;
}

void showSelectionFile(HWND page, ImportWizardState &state) { showFileName(page, state.selectionFile); }

dialogs::PageAnswer leaveSdiPage(HWND, ImportWizardState &state, dialogs::Leaving direction) {
    return leaveFilePage(state, direction, kSdiFileValue);
}
dialogs::PageAnswer leaveSelectionPage(HWND, ImportWizardState &state, dialogs::Leaving direction) {
    return leaveFilePage(state, direction, kSelectionFileValue);
}

void limit(HWND page, ImportWizardState &) { limitFileName(page); }

constexpr dialogs::Command<ImportWizardState> kSdiCommands[] = {
    {ids::kSdiFilePage.fileName, EN_CHANGE, sdiFileChanged},
    {ids::kSdiFilePage.browse, BN_CLICKED, browseSdiFile},
    {ids::kSdiFilePage.converter, BN_CLICKED, converterClicked},
};
constexpr dialogs::Command<ImportWizardState> kSelectionCommands[] = {
    {ids::kSelectionFilePage.fileName, EN_CHANGE, selectionFileChanged},
    {ids::kSelectionFilePage.browse, BN_CLICKED, browseSelectionFile},
};

} // namespace

void limitFileName(HWND page) {
    SendMessageW(GetDlgItem(page, ids::kTextFilePage.fileName), EM_LIMITTEXT, kFileNameCapacity - 1, 0);
}

void showFileName(HWND page, const std::u16string &name) {
    // Setting the text writes it back through the edit's change notice: copy first.
    const std::u16string copy = name;
    SetDlgItemTextW(page, ids::kTextFilePage.fileName, copy.c_str());
}

void browseForFile(HWND page, int32_t filterId) {
    char16_t name[kFileNameCapacity] = {};
    GetDlgItemTextW(page, ids::kTextFilePage.fileName, name, kFileNameCapacity);
    if (Ostrel_ExtendedFileNameDialog(page, OSTREL_FILE_OPEN, module::resourceLibrary(), filterId,
                                      ids::kString.fileDialogTitle, HKEY_CURRENT_USER, nullptr, nullptr, nullptr, name,
                                      kFileNameCapacity) == 1)
        SetDlgItemTextW(page, ids::kTextFilePage.fileName, name);
}

dialogs::PageAnswer leaveFilePage(ImportWizardState &state, dialogs::Leaving direction, const char16_t *registryValue) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    const std::u16string &file = state.sourceFile();
    if (file.empty()) {
        ShowMessage(ids::kMessage.noFileName, nullptr, nullptr, nullptr);
        return dialogs::PageAnswer::Stay;
    }
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, registryValue,
                                 file.c_str());
    return readFieldsIfChanged(state) ? dialogs::PageAnswer::GoOn : dialogs::PageAnswer::Stay;
}

extern const dialogs::Dialog<ImportWizardState> kSdiFilePageDialog{
    .initialise = limit, .commands = kSdiCommands, .entered = showSdiFile, .left = leaveSdiPage};
extern const dialogs::Dialog<ImportWizardState> kSelectionFilePageDialog{
    .initialise = limit, .commands = kSelectionCommands, .entered = showSelectionFile, .left = leaveSelectionPage};

} // namespace tabra::wizards::importing
