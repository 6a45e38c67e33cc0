// Page 4 of the export wizard: the file and its text format. Every edit and button
// writes into the state at once; leaving the page needs a file name, which is then
// kept in the registry for the next export.
#include "core/module/module_state.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "platform/text/bounded_text.h"
#include "wizards/export/export_pages.h"

#include <initializer_list>
#include <vector>

namespace tabra::wizards::exporting {
namespace {

constexpr auto &kPage = ids::kFilePage;
constexpr std::initializer_list<int32_t> kValueForms = {kPage.valuesAsText, kPage.valuesAsShown};
constexpr std::initializer_list<int32_t> kSeparators = {kPage.separatorTab, kPage.separatorBlank, kPage.separatorNone,
                                                        kPage.separatorOwn};
constexpr std::initializer_list<int32_t> kDecimals = {kPage.decimalComma, kPage.decimalPoint, kPage.decimalOwn};
constexpr int32_t kOneCharacterEdits[] = {kPage.ownSeparator, kPage.ownDecimal, kPage.leadingDelimiter,
                                          kPage.trailingDelimiter};

std::u16string controlText(HWND page, int32_t id, int32_t capacity) {
    std::vector<char16_t> text(static_cast<std::size_t>(capacity), u'\0');
    GetDlgItemTextW(page, id, text.data(), capacity);
    return text.data();
}

// The own characters are edited one at a time, and only while their radio is checked.
void enableOwnCharacters(HWND page, const ExportWizardState &state) {
    EnableWindow(GetDlgItem(page, kPage.ownSeparator), state.format.separatorKind == kPage.separatorOwn);
    EnableWindow(GetDlgItem(page, kPage.ownDecimal), state.format.decimalKind == kPage.decimalOwn);
}

void limitEdits(HWND page, ExportWizardState &) {
    SendMessageW(GetDlgItem(page, kPage.fileName), EM_LIMITTEXT, kFileNameCapacity - 1, 0);
    for (int32_t id : kOneCharacterEdits) SendMessageW(GetDlgItem(page, id), EM_LIMITTEXT, 1, 0);
}

void showFormat(HWND page, ExportWizardState &state) {
    const ExportFormat &format = state.format;
    // Setting a text writes it back through the edit's change notice: copy first.
    const std::u16string fileName = state.fileName, ownSeparator = format.ownSeparator,
                         ownDecimal = format.ownDecimal;
    const char16_t leading[] = {format.leadingDelimiter, u'\0'}, trailing[] = {format.trailingDelimiter, u'\0'};
    SetDlgItemTextW(page, kPage.fileName, fileName.c_str());
    SetDlgItemTextW(page, kPage.ownSeparator, ownSeparator.c_str());
    SetDlgItemTextW(page, kPage.ownDecimal, ownDecimal.c_str());
    SetDlgItemTextW(page, kPage.leadingDelimiter, leading);
    SetDlgItemTextW(page, kPage.trailingDelimiter, trailing);
    CheckDlgButton(page, kPage.headerLine, state.format.headerLine ? BST_CHECKED : BST_UNCHECKED);
    CheckRadioButton(page, kPage.valuesAsText, kPage.valuesAsShown, state.format.valueForm);
    CheckRadioButton(page, kPage.separatorTab, kPage.separatorOwn, state.format.separatorKind);
    CheckRadioButton(page, kPage.decimalComma, kPage.decimalOwn, state.format.decimalKind);
    enableOwnCharacters(page, state);
}

void editChanged(HWND page, ExportWizardState &state, int32_t id) {
    ExportFormat &format = state.format;
    if (id == kPage.fileName) state.fileName = controlText(page, id, kFileNameCapacity);
    else if (id == kPage.ownSeparator) format.ownSeparator = controlText(page, id, kOwnCharacterCapacity);
    else if (id == kPage.ownDecimal) format.ownDecimal = controlText(page, id, kOwnCharacterCapacity);
    else if (id == kPage.leadingDelimiter) format.leadingDelimiter = controlText(page, id, 2)[0];
    else if (id == kPage.trailingDelimiter) format.trailingDelimiter = controlText(page, id, 2)[0];
}

// The group's checked radio, else its first.
int32_t checkedOf(HWND page, std::initializer_list<int32_t> group) {
    for (int32_t id : group)
        if (IsDlgButtonChecked(page, id) == BST_CHECKED) return id;
    return *group.begin();
}

void radioClicked(HWND page, ExportWizardState &state, int32_t) {
    state.format.valueForm = checkedOf(page, kValueForms);
    state.format.separatorKind = checkedOf(page, kSeparators);
    state.format.decimalKind = checkedOf(page, kDecimals);
    enableOwnCharacters(page, state);
}

void headerLineClicked(HWND page, ExportWizardState &state, int32_t) {
    state.format.headerLine = IsDlgButtonChecked(page, kPage.headerLine) == BST_CHECKED;
}

void browse(HWND page, ExportWizardState &, int32_t) {
    char16_t name[kFileNameCapacity] = {};
    GetDlgItemTextW(page, kPage.fileName, name, kFileNameCapacity);
    if (Ostrel_ExtendedFileNameDialog(page, OSTREL_FILE_SAVE, module::resourceLibrary(), ids::kString.fileFilter,
                                      ids::kString.fileDialogTitle, HKEY_CURRENT_USER, nullptr, nullptr, nullptr, name,
                                      kFileNameCapacity) == 1)
        SetDlgItemTextW(page, kPage.fileName, name);
}

dialogs::PageAnswer leave(HWND, ExportWizardState &state, dialogs::Leaving direction) {
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    if (state.fileName.empty()) {
        ShowMessage(ids::kMessage.noFileName, nullptr, nullptr, nullptr);
        return dialogs::PageAnswer::Stay;
    }
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kRegistryKey, kFileNameValue,
                                 state.fileName.c_str());
    return dialogs::PageAnswer::GoOn;
}

constexpr dialogs::Command<ExportWizardState> kCommands[] = {
    {kPage.fileName, EN_CHANGE, editChanged},
    {kPage.ownSeparator, EN_CHANGE, editChanged},
    {kPage.ownDecimal, EN_CHANGE, editChanged},
    {kPage.leadingDelimiter, EN_CHANGE, editChanged},
    {kPage.trailingDelimiter, EN_CHANGE, editChanged},
    {kPage.valuesAsText, BN_CLICKED, radioClicked},
    {kPage.valuesAsShown, BN_CLICKED, radioClicked},
    {kPage.separatorTab, BN_CLICKED, radioClicked},
    {kPage.separatorBlank, BN_CLICKED, radioClicked},
    {kPage.separatorNone, BN_CLICKED, radioClicked},
    {kPage.separatorOwn, BN_CLICKED, radioClicked},
    {kPage.decimalComma, BN_CLICKED, radioClicked},
    {kPage.decimalPoint, BN_CLICKED, radioClicked},
    {kPage.decimalOwn, BN_CLICKED, radioClicked},
    {kPage.headerLine, BN_CLICKED, headerLineClicked},
    {kPage.browse, BN_CLICKED, browse},
};

} // namespace

extern const dialogs::Dialog<ExportWizardState> kFilePageDialog{
    .initialise = limitEdits, .commands = kCommands, .entered = showFormat, .left = leave};

} // namespace tabra::wizards::exporting
