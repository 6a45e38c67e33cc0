// Message boxes.
#include "platform/window/message_box.h"

#include "ostrel_ui.h"
#include "platform/window/focus.h"
#include "platform/window/renderer_selection.h"
#include "platform/widgets/resource_strings.h"
#include "platform/window/window_registry.h"

#include <algorithm>
#include <string>

namespace tabra::window {

std::vector<int32_t> messageBoxButtons(uint32_t style) {
    switch (style & MB_TYPEMASK) {
    case MB_OKCANCEL: return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE: return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL: return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO: return {IDYES, IDNO};
    case MB_RETRYCANCEL: return {IDRETRY, IDCANCEL};
    default: return {IDOK};
    }
}

int32_t cancelLikeAnswer(uint32_t style) {
    auto buttons = messageBoxButtons(style);
    for (int32_t wanted : {IDCANCEL, IDNO, IDOK})
        if (std::find(buttons.begin(), buttons.end(), wanted) != buttons.end()) return wanted;
    return buttons.front(); // abort / retry / ignore: abort
}

std::u16string formatMessageText(std::u16string_view text, const char16_t *insert1, const char16_t *insert2,
                                 const char16_t *insert3) {
    const char16_t *inserts[] = {insert1, insert2, insert3};
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t c = text[i];
        if (c == u'%' && i + 1 < text.size()) {
            char16_t next = text[i + 1];
            if (next >= u'1' && next <= u'3') {
                if (const char16_t *insert = inserts[next - u'1']) out += insert;
                ++i;
                continue;
            }
            if (next == u'%') {
                out += u'%';
                ++i;
                continue;
            }
        }
        out += c;
    }
    return out;
}

int32_t showMessageBox(MessageBoxPrompt prompt) {
    if (!findWindow(prompt.owner)) prompt.owner = activeDialog();
    int32_t answer = activeRenderer().messageBox(prompt);
    auto buttons = messageBoxButtons(prompt.style);
    if (std::find(buttons.begin(), buttons.end(), answer) == buttons.end()) answer = cancelLikeAnswer(prompt.style);
    return answer;
}

} // namespace tabra::window

using namespace tabra::window;

extern "C" {

int32_t MessageBoxW(HWND owner, const char16_t *text, const char16_t *caption, uint32_t style) {
    MessageBoxPrompt prompt;
    prompt.owner = owner;
    prompt.text = text ? text : u"";
    prompt.caption = caption ? caption : u"Error";
    prompt.style = style;
    return showMessageBox(std::move(prompt));
}

int32_t Ostrel_Message_Box(const OstrelMessageBoxRequest *request) {
    if (!request) return 0;
    MessageBoxPrompt prompt;
    prompt.owner = request->owner;
    prompt.stringId = request->textId;
    prompt.messageCode = request->messageCode;
    if (request->captionId != 0) prompt.caption = resourceText(request->module, request->captionId, request->translationModule);
    if (auto entry = loadResourceString(request->module, request->textId, request->translationModule)) {
        prompt.text = formatMessageText(entry->text, request->insert1, request->insert2, request->insert3);
        prompt.style = entry->messageBoxStyle;
    } else {
        // Without the string the user still learns that something happened, and what.
        std::u16string text = u"Message " + [](int32_t id) {
            std::string digits = std::to_string(id);
            return std::u16string(digits.begin(), digits.end());
        }(request->textId);
        for (const char16_t *insert : {request->insert1, request->insert2, request->insert3})
            if (insert && *insert) text += std::u16string(u"\n") + insert;
        prompt.text = std::move(text);
        prompt.style = MB_OK | MB_ICONERROR;
    }
    return showMessageBox(std::move(prompt));
}

} // extern "C"
