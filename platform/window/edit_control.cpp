// Edit controls. Typing goes through WM_CHAR so that every character passes the same
// rules (read-only, digits only, upper case, the limit) and a dialog procedure sees
// an EN_CHANGE per character.
#include "platform/window/edit_control.h"

#include "platform/text/bounded_text.h"
#include "platform/text/case_folding.h"
#include "platform/window/message_dispatch.h"
#include "platform/window/renderer_selection.h"

#include <algorithm>

namespace tabra::window {
namespace {

constexpr int32_t kLargestLimit = 0x7FFFFFFE;

int32_t length(const Window &edit) { return static_cast<int32_t>(edit.text.size()); }

void clampSelection(Window &edit, EditState &state) {
    state.selectionStart = std::clamp(state.selectionStart, 0, length(edit));
    state.selectionEnd = std::clamp(state.selectionEnd, 0, length(edit));
}

void notifyChanged(Window &edit) {
    sendCommandToParent(edit, EN_UPDATE);
    sendCommandToParent(edit, EN_CHANGE);
}

// Replaces the selection by text, cut to what the limit leaves room for. Returns false
// when nothing at all fitted (and the text was not empty).
bool replaceSelection(Window &edit, EditState &state, std::u16string text, bool honourLimit) {
    clampSelection(edit, state);
    int32_t from = std::min(state.selectionStart, state.selectionEnd);
    int32_t to = std::max(state.selectionStart, state.selectionEnd);
    if (honourLimit) {
        int64_t room = static_cast<int64_t>(state.limit) - (length(edit) - (to - from));
        if (room < static_cast<int64_t>(text.size())) {
            text.resize(platform::cutLength(text, static_cast<std::size_t>(std::max<int64_t>(room, 0))));
            if (text.empty()) {
                sendCommandToParent(edit, EN_MAXTEXT);
                return false;
            }
        }
    }
    edit.text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), text);
    state.selectionStart = state.selectionEnd = from + static_cast<int32_t>(text.size());
    state.modified = true;
    announce(edit, Change::Text);
    return true;
}

// A backspace: the selection, or the character (the whole surrogate pair) before the
// caret.
bool backspace(Window &edit, EditState &state) {
    clampSelection(edit, state);
    if (state.selectionStart != state.selectionEnd) return replaceSelection(edit, state, u"", false);
    int32_t caret = state.selectionEnd;
    if (caret == 0) return false;
    int32_t from = caret - 1;
    if (from > 0 && platform::isLowSurrogate(edit.text[static_cast<std::size_t>(from)]) &&
        platform::isHighSurrogate(edit.text[static_cast<std::size_t>(from - 1)]))
        --from;
    edit.text.erase(static_cast<std::size_t>(from), static_cast<std::size_t>(caret - from));
    state.selectionStart = state.selectionEnd = from;
    state.modified = true;
    announce(edit, Change::Text);
    return true;
}

void typeCharacter(Window &edit, EditState &state, char16_t c) {
    if (isReadOnlyEdit(edit)) {
        activeRenderer().beep(0);
        return;
    }
    if (c == 8) {
        if (backspace(edit, state)) notifyChanged(edit);
        return;
    }
    std::u16string insert(1, c);
    if (c == u'\r' || c == u'\n') {
        if (!isMultiLineEdit(edit)) return; // Enter belongs to the dialog, not to the text
        insert = u"\r\n";
    } else if (c < 32 && c != u'\t') {
        return;
    } else if (c == u'\t' && !isMultiLineEdit(edit)) {
        return;
    }
    if ((edit.style & ES_NUMBER) && !(c >= u'0' && c <= u'9')) {
        activeRenderer().beep(0);
        return;
    }
    if (edit.style & ES_UPPERCASE) insert[0] = platform::foldCase(insert[0]);
    if (replaceSelection(edit, state, insert, true)) notifyChanged(edit);
}

} // namespace

bool isMultiLineEdit(const Window &edit) { return (edit.style & ES_MULTILINE) != 0; }
bool isReadOnlyEdit(const Window &edit) { return (edit.style & ES_READONLY) != 0; }

void placeCaretAtEnd(Window &edit) {
    if (auto *state = edit.as<EditState>()) state->selectionStart = state->selectionEnd = length(edit);
}

bool editMessage(Window &edit, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    auto *state = edit.as<EditState>();
    if (!state) return false;
    switch (message) {
    case WM_SETTEXT:
        edit.text = textFromParameter(lParam);
        state->selectionStart = state->selectionEnd = 0;
        state->modified = false;
        announce(edit, Change::Text);
        if (!isMultiLineEdit(edit)) notifyChanged(edit);
        result = 1;
        return true;
    case WM_CHAR:
        typeCharacter(edit, *state, static_cast<char16_t>(wParam));
        result = 0;
        return true;
    case EM_LIMITTEXT:
        state->limit = wParam == 0 ? kLargestLimit : static_cast<int32_t>(std::min<WPARAM>(wParam, kLargestLimit));
        announce(edit, Change::Style);
        result = 0;
        return true;
    case EM_GETLIMITTEXT:
        result = state->limit;
        return true;
    case EM_SETSEL: {
        auto start = static_cast<int32_t>(static_cast<intptr_t>(wParam));
        auto end = static_cast<int32_t>(lParam);
        if (start == -1) {
            state->selectionStart = state->selectionEnd; // no selection, the caret stays
        } else {
            if (end == -1) end = length(edit);
            state->selectionStart = start;
            state->selectionEnd = end;
            clampSelection(edit, *state);
        }
        announce(edit, Change::Selection);
        result = 0;
        return true;
    }
    case EM_GETSEL: {
        clampSelection(edit, *state);
        int32_t from = std::min(state->selectionStart, state->selectionEnd);
        int32_t to = std::max(state->selectionStart, state->selectionEnd);
        if (auto *start = reinterpret_cast<uint32_t *>(wParam)) *start = static_cast<uint32_t>(from);
        if (auto *end = reinterpret_cast<uint32_t *>(lParam)) *end = static_cast<uint32_t>(to);
        result = MAKELRESULT(from, to);
        return true;
    }
    case EM_REPLACESEL:
        if (replaceSelection(edit, *state, textFromParameter(lParam), true)) notifyChanged(edit);
        result = 0;
        return true;
    case EM_SETREADONLY:
        if (wParam) edit.style |= ES_READONLY;
        else edit.style &= ~ES_READONLY;
        announce(edit, Change::Style);
        result = 1;
        return true;
    case EM_GETLINECOUNT:
        result = isMultiLineEdit(edit) ? 1 + std::count(edit.text.begin(), edit.text.end(), u'\n') : 1;
        return true;
    default:
        return false;
    }
}

} // namespace tabra::window
