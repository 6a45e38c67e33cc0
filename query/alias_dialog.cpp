// Editing the alias of a column-list entry: a small dialog whose edit field accepts
// only the alias alphabet (letters, the digits 1 to 9 and "_"; never 0).
#include "core/dialogs/dialog.h"
#include "ostrel.h"
#include "query/alias_alphabet.h"
#include "query/resource_ids.h"
#include "tabra_query.h"
#include "tabra_window.h"

#include <string>
#include <string_view>

namespace {

using tabra::query::ids::kAliasDialog;

constexpr int32_t kAliasCapacity = 100;
constexpr int32_t kEntryCapacity = 200;
// The dialog's state is the caller's alias buffer (kAliasCapacity characters), given
// by its first character.
void showAlias(HWND dialog, char16_t &alias) { SetDlgItemTextW(dialog, kAliasDialog.alias, &alias); }

bool takeAlias(HWND dialog, char16_t &alias) {
    GetDlgItemTextW(dialog, kAliasDialog.alias, &alias, kAliasCapacity);
    return true;
}

void refuseForeignCharacters(HWND dialog, char16_t &, int32_t control) {
    tabra::query::takeBackForeignCharacter(dialog, control);
}

constexpr tabra::dialogs::Command<char16_t> kCommands[] = {{kAliasDialog.alias, EN_CHANGE, refuseForeignCharacters}};
constexpr tabra::dialogs::Dialog<char16_t> kDialog{.initialise = showAlias, .accept = takeAlias, .commands = kCommands};

} // namespace

extern "C" INT_PTR EditAlias_Dialog_Callback(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    return kDialog.answer(dialog, message, wParam, lParam);
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
    if (tabra::dialogs::runModal(kAliasDialog.id, EditAlias_Dialog_Callback, alias[0]) != IDOK) return 2;
    std::u16string rebuilt = column;
    if (alias[0] != u'\0') rebuilt += u"\t" + std::u16string(alias);
    Ostrel_DeleteBoxEntry(box, index);
    Ostrel_AddBoxEntry(box, rebuilt.c_str(), 0, index, 0);
    Ostrel_SetBoxIndex(box, index);
    return 1;
}
