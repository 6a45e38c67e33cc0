// Single- and multi-line edit controls: the text lives in Window::text; the edit adds
// the user's text limit and the selection (the caret is the selection's end).
// Styles: ES_MULTILINE, ES_READONLY, ES_PASSWORD, ES_NUMBER, ES_UPPERCASE.
#pragma once

#include "tabra_base.h"

#include <cstdint>

namespace tabra::window {

struct Window;

struct EditState {
    int32_t limit = 32767;      // characters a user may type (EM_LIMITTEXT)
    int32_t selectionStart = 0; // selection [start, end); caret at end
    int32_t selectionEnd = 0;
    bool modified = false;      // changed by the user since the last WM_SETTEXT
};

bool isMultiLineEdit(const Window &edit);
bool isReadOnlyEdit(const Window &edit);

// Handles WM_SETTEXT, WM_CHAR and the EM_* messages; false for anything else.
// WM_SETTEXT notifies EN_CHANGE (not for multi-line edits, as in Win32); a character
// that changes the text notifies EN_UPDATE and EN_CHANGE; a backspace removes the
// selection or the character before the caret.
bool editMessage(Window &edit, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result);

// Puts the caret at the end of the text with nothing selected (where a user clicks
// before typing).
void placeCaretAtEnd(Window &edit);

} // namespace tabra::window
