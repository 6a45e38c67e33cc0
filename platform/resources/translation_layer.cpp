// The exported translation calls: strings and whole dialogs.
#include "ostrel_lts.h"
#include "platform/resources/translation_table.h"
#include "platform/text/bounded_text.h"
#include "tabra_window.h"

#include <string>

using namespace tabra::platform;

extern "C" int32_t LTS_TranslateString(const char16_t *moduleName, uint32_t, char16_t *text, int32_t size) {
    if (text == nullptr || size < 1) return -1;
    std::u16string_view current = viewOfBuffer(text, static_cast<size_t>(size));
    if (moduleName != nullptr) {
        if (std::optional<std::u16string> replacement = translationOf(moduleName, current))
            return writeBounded(text, size, *replacement);
    }
    return static_cast<int32_t>(current.size());
}

namespace {

struct DialogTranslation {
    std::u16string_view moduleName;
    int32_t replaced = 0;
};

// Replaces one window's text when the table knows it.
void translateWindowText(HWND window, DialogTranslation &translation) {
    int32_t length = GetWindowTextLengthW(window);
    if (length <= 0) return;
    std::u16string text(static_cast<size_t>(length) + 1, u'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), length + 1)));
    if (std::optional<std::u16string> replacement = translationOf(translation.moduleName, text)) {
        SetWindowTextW(window, replacement->c_str());
        ++translation.replaced;
    }
}

int32_t translateChild(HWND child, LPARAM parameter) {
    translateWindowText(child, *reinterpret_cast<DialogTranslation *>(parameter));
    return 1;
}

} // namespace

extern "C" int32_t LTS_TranslateDialog(HWND dialog, const char16_t *moduleName, uint32_t) {
    if (dialog == nullptr || !IsWindow(dialog)) return -1;
    if (moduleName == nullptr) return 0;
    DialogTranslation translation{moduleName};
    translateWindowText(dialog, translation);
    EnumChildWindows(dialog, translateChild, reinterpret_cast<LPARAM>(&translation));
    return translation.replaced;
}
