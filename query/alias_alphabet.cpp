// The alias alphabet.
#include "query/alias_alphabet.h"

#include "tabra_window.h"

namespace tabra::query {

namespace {

constexpr int32_t kTextCapacity = 100;
constexpr std::u16string_view kAliasAlphabet = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ123456789_";
constexpr char16_t kBackspace = 8;

} // namespace

bool isAliasText(std::u16string_view text) { return text.find_first_not_of(kAliasAlphabet) == std::u16string_view::npos; }

void takeBackForeignCharacter(HWND dialog, int32_t edit) {
    char16_t text[kTextCapacity] = {};
    GetDlgItemTextW(dialog, edit, text, kTextCapacity);
    if (isAliasText(text)) return;
    MessageBeep(MB_SIMPLEBEEP);
    SendMessageW(GetDlgItem(dialog, edit), WM_CHAR, kBackspace, 0);
}

} // namespace tabra::query
