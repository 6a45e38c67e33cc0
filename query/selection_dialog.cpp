// The selection dialog: the user fills condition rows (one group of five conditions
// and three single-condition alternatives) and may save them as a selection mask file
// or load one.
#include "core/dialogs/dialog.h"
#include "ostrel.h"
#include "query/condition_rows.h"
#include "query/mask_file.h"
#include "query/operator_tables.h"
#include "query/resource_ids.h"
#include "query/wide_buffer.h"
#include "tabra_connection.h"
#include "tabra_query.h"
#include "tabra_window.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace tabra::query;

using ids::kSelectionDialog;

constexpr int32_t kHelpTopic = kSelectionDialog.id;
constexpr int32_t kMinimumCapacity = 10;
constexpr ConditionRow kRows[] = TABRA_SELECTION_DIALOG_ROWS;

// Where the file dialog of masks keeps the last name.
constexpr char16_t kSettingsKey[] = u"Settings";
constexpr char16_t kMaskFileValue[] = u"SelectMaskFile";
constexpr int32_t kFileNameCapacity = 1024;
constexpr int32_t kMaskCapacity = 5000;

// The dialog's parameter block, kept in its user data.
struct SelectionDialogParameters {
    char16_t *selDesc;
    int32_t selDescChars;
    const char16_t *columnList;
    LPARAM reserved1;
    LPARAM reserved2;
};

bool isBlank(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 33; });
}

// Asks for a mask file name; empty when the user cancels.
std::u16string askMaskFileName(HWND dialog, int32_t mode, int32_t titleId) {
    std::vector<char16_t> name(kFileNameCapacity, u'\0');
    if (Ostrel_ExtendedFileNameDialog(dialog, mode, tabra::module::resourceLibrary(), ids::kString.maskFilter, titleId,
                                      HKEY_CURRENT_USER, tabra::module::kRegistryRoot, kSettingsKey, kMaskFileValue,
                                      name.data(), kFileNameCapacity) != 1)
        return {};
    return name.data();
}

// The rows' descriptor into a buffer of capacity characters.
void writeRows(HWND dialog, char16_t *out, int32_t capacity) {
    OstrelCopyString(out, descriptorFromRows(kSelectionKind, dialog, kRows, capacity).c_str(), capacity);
}

// The parameter block comes from Tabra_Edit_SelDesc: the rows show its descriptor.
void initialise(HWND dialog, SelectionDialogParameters &parameters) {
    std::u16string descriptor = readBounded(parameters.selDesc, parameters.selDescChars);
    showDescriptorInRows(kSelectionKind, descriptor.c_str(), parameters.columnList, dialog, kRows);
}

// The first row's column box, in table order, that is still empty (it takes the
// focus); null when every row is filled.
HWND firstEmptyRow(HWND dialog, SelectionDialogParameters &) {
    for (const ConditionRow &row : kRows) {
        if (row.column < 1) break;
        if (row.column == 1) continue;
        HWND column = GetDlgItem(dialog, row.column);
        if (GetWindowTextLengthW(column) == 0) return column;
    }
    return nullptr;
}

bool accept(HWND dialog, SelectionDialogParameters &parameters) {
    writeRows(dialog, parameters.selDesc, parameters.selDescChars);
    return true;
}

void loadMask(HWND dialog, SelectionDialogParameters &parameters, int32_t) {
    std::u16string fileName = askMaskFileName(dialog, OSTREL_FILE_OPEN, ids::kString.loadMaskTitle);
    if (fileName.empty()) return;
    std::optional<std::u16string> mask = readMaskFile(fileName);
    if (!mask || mask->size() < kMaskPrefix.size() || !mask->starts_with(kMaskPrefix)) {
        ShowMessage(ids::kMessage.notAMask, fileName.c_str(), nullptr, nullptr);
        return;
    }
    showDescriptorInRows(kSelectionKind, mask->c_str() + kMaskPrefix.size(), parameters.columnList, dialog, kRows);
}

void saveMask(HWND dialog, SelectionDialogParameters &, int32_t) {
    std::vector<char16_t> mask(kMaskCapacity, u'\0');
    kMaskPrefix.copy(mask.data(), kMaskPrefix.size());
    char16_t *descriptor = mask.data() + kMaskPrefix.size();
    writeRows(dialog, descriptor, kMaskCapacity - static_cast<int32_t>(kMaskPrefix.size()));
    if (isBlank(descriptor)) return;
    std::u16string fileName = askMaskFileName(dialog, OSTREL_FILE_SAVE, ids::kString.saveMaskTitle);
    if (!fileName.empty()) writeMaskFile(fileName, mask.data());
}

void showHelp(HWND, SelectionDialogParameters &, int32_t) {
    Ostrel_PerformHelp(tabra::module::resourceLibrary(), kHelpTopic, 0);
}

constexpr tabra::dialogs::Command<SelectionDialogParameters> kCommands[] = {
    {kSelectionDialog.loadMask, tabra::dialogs::kAnyNotification, loadMask},
    {kSelectionDialog.saveMask, tabra::dialogs::kAnyNotification, saveMask},
    {IDHELP, tabra::dialogs::kAnyNotification, showHelp},
};
constexpr tabra::dialogs::Dialog<SelectionDialogParameters> kDialog{
    .initialise = initialise, .initialFocus = firstEmptyRow, .accept = accept, .commands = kCommands};

} // namespace

extern "C" INT_PTR EditSelDesc_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
}

extern "C" int32_t Tabra_Edit_SelDesc(char16_t *selDesc, int32_t selDescChars, const char16_t *columnList,
                                      LPARAM reserved1, LPARAM reserved2) {
    if (selDesc == nullptr || selDescChars < kMinimumCapacity) return 2;
    SelectionDialogParameters parameters{selDesc, selDescChars, columnList, reserved1, reserved2};
    return tabra::dialogs::runModal(kSelectionDialog.id, EditSelDesc_Dialog_Callback, parameters) == IDOK ? 1 : 2;
}
