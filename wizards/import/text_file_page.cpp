// The text file page: the file and its format. Every edit and button writes into the
// state at once; leaving forward reads the file's fields when the file or its format
// (the signature) changed since the last reading.
#include "wizards/import/import_pages.h"

namespace tabra::wizards::importing {
namespace {

constexpr auto &kPage = ids::kTextFilePage;
constexpr std::initializer_list<int32_t> kFirstLines = {kPage.namesInFirstLine, kPage.dataInFirstLine};
constexpr std::initializer_list<int32_t> kValueForms = {kPage.valuesAsText, kPage.valuesAsShown};
constexpr std::initializer_list<int32_t> kSeparators = {kPage.separatorTab, kPage.separatorBlank, kPage.separatorOwn};
constexpr std::initializer_list<int32_t> kDecimals = {kPage.decimalComma, kPage.decimalPoint, kPage.decimalOwn};
constexpr int32_t kOneCharacterEdits[] = {kPage.ownSeparator, kPage.ownDecimal, kPage.leadingDelimiter,
                                          kPage.trailingDelimiter};

// The own characters are edited only while their radio is checked.
void enableOwnCharacters(HWND page, const ImportWizardState &state) {
    EnableWindow(GetDlgItem(page, kPage.ownSeparator), state.textFormat.separatorKind == kPage.separatorOwn);
    EnableWindow(GetDlgItem(page, kPage.ownDecimal), state.textFormat.decimalKind == kPage.decimalOwn);
}

void limitEdits(HWND page, ImportWizardState &) {
    limitFileName(page);
    for (int32_t id : kOneCharacterEdits) SendMessageW(GetDlgItem(page, id), EM_LIMITTEXT, 1, 0);
}

void showFormat(HWND page, ImportWizardState &state) {
    const TextFormat format = state.textFormat; // setting a text writes it back: work on a copy
    showFileName(page, state.textFile);
    SetDlgItemTextW(page, kPage.ownSeparator, format.ownSeparator.c_str());
    SetDlgItemTextW(page, kPage.ownDecimal, format.ownDecimal.c_str());
    const char16_t leading[] = {format.leading, u'\0'}, trailing[] = {format.trailing, u'\0'};
    SetDlgItemTextW(page, kPage.leadingDelimiter, leading);
    SetDlgItemTextW(page, kPage.trailingDelimiter, trailing);
    CheckRadioButton(page, kPage.namesInFirstLine, kPage.dataInFirstLine, format.firstLine);
    CheckRadioButton(page, kPage.valuesAsText, kPage.valuesAsShown, format.valueForm);
    CheckRadioButton(page, kPage.separatorTab, kPage.separatorOwn, format.separatorKind);
    CheckRadioButton(page, kPage.decimalComma, kPage.decimalOwn, format.decimalKind);
    enableOwnCharacters(page, state);
}

void editChanged(HWND page, ImportWizardState &state, int32_t id) {
    TextFormat &format = state.textFormat;
    if (id == kPage.fileName) state.textFile = controlText(page, id, kFileNameCapacity);
    else if (id == kPage.ownSeparator) format.ownSeparator = controlText(page, id, kOwnCharacterCapacity);
    else if (id == kPage.ownDecimal) format.ownDecimal = controlText(page, id, kOwnCharacterCapacity);
    else if (id == kPage.leadingDelimiter) format.leading = controlText(page, id, 2)[0];
    else if (id == kPage.trailingDelimiter) format.trailing = controlText(page, id, 2)[0];
}

void radioClicked(HWND page, ImportWizardState &state, int32_t) {
    TextFormat &format = state.textFormat;
    format.firstLine = checkedOf(page, kFirstLines);
    format.valueForm = checkedOf(page, kValueForms);
    format.separatorKind = checkedOf(page, kSeparators);
    format.decimalKind = checkedOf(page, kDecimals);
    enableOwnCharacters(page, state);
}

void browse(HWND page, ImportWizardState &, int32_t) { browseForFile(page, ids::kString.textFileFilter); }

dialogs::PageAnswer leave(HWND, ImportWizardState &state, dialogs::Leaving direction) {
    return leaveFilePage(state, direction, kTextFileValue);
}

constexpr dialogs::Command<ImportWizardState> kCommands[] = {
    {kPage.fileName, EN_CHANGE, editChanged},
    {kPage.ownSeparator, EN_CHANGE, editChanged},
    {kPage.ownDecimal, EN_CHANGE, editChanged},
    {kPage.leadingDelimiter, EN_CHANGE, editChanged},
    {kPage.trailingDelimiter, EN_CHANGE, editChanged},
    {kPage.namesInFirstLine, BN_CLICKED, radioClicked},
    {kPage.dataInFirstLine, BN_CLICKED, radioClicked},
    {kPage.valuesAsText, BN_CLICKED, radioClicked},
    {kPage.valuesAsShown, BN_CLICKED, radioClicked},
    {kPage.separatorTab, BN_CLICKED, radioClicked},
    {kPage.separatorBlank, BN_CLICKED, radioClicked},
    {kPage.separatorOwn, BN_CLICKED, radioClicked},
    {kPage.decimalComma, BN_CLICKED, radioClicked},
    {kPage.decimalPoint, BN_CLICKED, radioClicked},
    {kPage.decimalOwn, BN_CLICKED, radioClicked},
    {kPage.browse, BN_CLICKED, browse},
};

} // namespace

extern const dialogs::Dialog<ImportWizardState> kTextFilePageDialog{
    .initialise = limitEdits, .commands = kCommands, .entered = showFormat, .left = leave};

} // namespace tabra::wizards::importing
