// Editing the alias of a column-list entry: a small dialog whose edit field accepts
// only the alias alphabet (letters, the digits 1 to 9 and "_"; never 0).
#include "core/module/module_state.h"
#include "ostrel.h"
#include "tabra_query.h"
#include "tabra_window.h"

#include <string>
#include <string_view>

namespace {

constexpr int32_t kAliasDialogTemplate = 10006;
constexpr int32_t kAliasField = 1033;
constexpr int32_t kAliasCapacity = 100;
constexpr int32_t kEntryCapacity = 200;
constexpr std::u16string_view kAliasAlphabet = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ123456789_";

bool isAliasText(std::u16string_view text) { return text.find_first_not_of(kAliasAlphabet) == std::u16string_view::npos; }

} // namespace

extern "C" INT_PTR EditAlias_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    auto *alias = reinterpret_cast<char16_t *>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        LTS_TranslateDialog(dialog, tabra::module::kTranslationModuleName, 0);
        SetDlgItemTextW(dialog, kAliasField, reinterpret_cast<char16_t *>(lParam));
        return 1;
    }
    if (alias == nullptr || message != WM_COMMAND) return 0;
    switch (GetWmCommandId(wParam)) {
    case IDOK:
        GetDlgItemTextW(dialog, kAliasField, alias, kAliasCapacity);
        EndDialog(dialog, IDOK);
        return 1;
    case IDCANCEL:
        EndDialog(dialog, IDCANCEL);
        return 1;
    case kAliasField:
        if (GetWmCommandNotif(wParam) == EN_CHANGE) {
            char16_t text[kAliasCapacity] = {};
            GetDlgItemTextW(dialog, kAliasField, text, kAliasCapacity);
            if (!isAliasText(text)) {
                MessageBeep(0xFFFFFFFFu);
                SendMessageW(GetDlgItem(dialog, kAliasField), WM_CHAR, 8, 0);
            }
        }
        return 1;
    default:
        return 0;
    }
}

extern "C" int32_t Tabra_FieldsBox_EditAlias(HWND box, int32_t index) {
    if (index < 0) index = Ostrel_GetBoxIndex(box);
    if (index < 0) return 2;
    char16_t entry[kEntryCapacity] = {};
    if (Ostrel_GetBoxEntry(box, index, entry, kEntryCapacity) < 0) return 2;
    std::u16string text = entry;
    size_t tab = text.find(u'\t');
    std::u16string column = text.substr(0, std::min<size_t>(tab, 99));
    char16_t alias[kAliasCapacity] = {};
    if (tab != std::u16string::npos) OstrelCopyString(alias, text.substr(tab + 1, 99).c_str(), kAliasCapacity);
    if (DialogBoxParamW(tabra::module::resourceLibrary(), kAliasDialogTemplate, GetActiveWindow(),
                        EditAlias_Dialog_Callback, reinterpret_cast<LPARAM>(alias)) != IDOK)
        return 2;
    std::u16string rebuilt = column;
    if (alias[0] != u'\0') rebuilt += u"\t" + std::u16string(alias);
    Ostrel_DeleteBoxEntry(box, index);
    Ostrel_AddBoxEntry(box, rebuilt.c_str(), 0, index, 0);
    Ostrel_SetBoxIndex(box, index);
    return 1;
}
