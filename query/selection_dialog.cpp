// The selection dialog: the user fills condition rows (one group of five conditions
// and three single-condition alternatives) and may save them as a selection mask file
// or load one.
#include "core/module/module_state.h"
#include "ostrel.h"
#include "query/mask_file.h"
#include "query/operator_tables.h"
#include "query/wide_buffer.h"
#include "tabra_connection.h"
#include "tabra_query.h"
#include "tabra_window.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace tabra::query;

constexpr int32_t kDialogTemplate = 10019;
constexpr int32_t kHelpTopic = 10019;
constexpr int32_t kMinimumCapacity = 10;
constexpr ConditionRow kRows[] = TABRA_SELECTION_DIALOG_ROWS;

enum Command : int32_t { LoadMask = 3, SaveMask = 4, Help = 9 };

// The file dialog of masks: filter, titles and where the last name is kept.
constexpr int32_t kMaskFilter = 1805;
constexpr int32_t kLoadMaskTitle = 2913;
constexpr int32_t kSaveMaskTitle = 2914;
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
    if (Ostrel_ExtendedFileNameDialog(dialog, mode, tabra::module::resourceLibrary(), kMaskFilter, titleId,
                                      HKEY_CURRENT_USER, tabra::module::kRegistryRoot, kSettingsKey, kMaskFileValue,
                                      name.data(), kFileNameCapacity) != 1)
        return {};
    return name.data();
}

// Focus on the first row, in table order, whose column is still empty; false when
// the focus was set there.
bool focusFirstEmptyRow(HWND dialog) {
    for (const ConditionRow &row : kRows) {
        if (row.column < 1) break;
        if (row.column == 1) continue;
        HWND column = GetDlgItem(dialog, row.column);
        if (GetWindowTextLengthW(column) == 0) {
            SetFocus(column);
            return false;
        }
    }
    return true;
}

void loadMask(HWND dialog, const SelectionDialogParameters &parameters) {
    std::u16string fileName = askMaskFileName(dialog, OSTREL_FILE_OPEN, kLoadMaskTitle);
    if (fileName.empty()) return;
    std::optional<std::u16string> mask = readMaskFile(fileName);
    if (!mask || mask->size() < kMaskPrefix.size() || !mask->starts_with(kMaskPrefix)) {
        ShowMessage(kNotAMaskMessage, fileName.c_str(), nullptr, nullptr);
        return;
    }
    Tabra_OpDesc_To_DialogItems(kSelectionKind, mask->c_str() + kMaskPrefix.size(), parameters.columnList, dialog,
                                kRows);
}

void saveMask(HWND dialog) {
    std::vector<char16_t> mask(kMaskCapacity, u'\0');
    kMaskPrefix.copy(mask.data(), kMaskPrefix.size());
    char16_t *descriptor = mask.data() + kMaskPrefix.size();
    Tabra_DialogItems_To_OpDesc(kSelectionKind, dialog, kRows, descriptor,
                                kMaskCapacity - static_cast<int32_t>(kMaskPrefix.size()));
    if (isBlank(descriptor)) return;
    std::u16string fileName = askMaskFileName(dialog, OSTREL_FILE_SAVE, kSaveMaskTitle);
    if (!fileName.empty()) writeMaskFile(fileName, mask.data());
}

} // namespace

extern "C" INT_PTR EditSelDesc_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto *parameters = reinterpret_cast<SelectionDialogParameters *>(lParam);
        if (parameters == nullptr) return TRUE; // not opened by Tabra_Edit_SelDesc: stays inert
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        LTS_TranslateDialog(dialog, tabra::module::kTranslationModuleName, 0);
        std::u16string descriptor = readBounded(parameters->selDesc, parameters->selDescChars);
        Tabra_OpDesc_To_DialogItems(kSelectionKind, descriptor.c_str(), parameters->columnList, dialog, kRows);
        return focusFirstEmptyRow(dialog) ? TRUE : FALSE;
    }
    auto *parameters = reinterpret_cast<SelectionDialogParameters *>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (parameters == nullptr || message != WM_COMMAND) return 0;
    switch (GetWmCommandId(wParam)) {
    case IDOK:
        Tabra_DialogItems_To_OpDesc(kSelectionKind, dialog, kRows, parameters->selDesc, parameters->selDescChars);
        EndDialog(dialog, IDOK);
        return 1;
    case IDCANCEL:
        EndDialog(dialog, IDCANCEL);
        return 1;
    case LoadMask:
        loadMask(dialog, *parameters);
        return 1;
    case SaveMask:
        saveMask(dialog);
        return 1;
    case Help:
        Ostrel_PerformHelp(tabra::module::resourceLibrary(), kHelpTopic, 0);
        return 1;
    default:
        return 0;
    }
}

extern "C" int32_t Tabra_Edit_SelDesc(char16_t *selDesc, int32_t selDescChars, const char16_t *columnList,
                                      LPARAM reserved1, LPARAM reserved2) {
    if (selDesc == nullptr || selDescChars < kMinimumCapacity) return 2;
    SelectionDialogParameters parameters{selDesc, selDescChars, columnList, reserved1, reserved2};
    INT_PTR result = DialogBoxParamW(tabra::module::resourceLibrary(), kDialogTemplate, GetActiveWindow(),
                                     EditSelDesc_Dialog_Callback, reinterpret_cast<LPARAM>(&parameters));
    return result == IDOK ? 1 : 2;
}
