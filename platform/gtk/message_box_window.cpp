// The message box.
#include "platform/gtk/message_box_window.h"

#include "platform/gtk/gtk_automation.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/prompt_loop.h"
#include "tabra_window.h"

#include <cstdio>
#include <vector>

namespace tabra::gtk {
namespace {

struct Icon {
    GtkMessageType type;
    const char *name; // of the icon theme, null for none
};

Icon iconOf(uint32_t style) {
    switch (style & MB_ICONMASK) {
    case MB_ICONERROR: return {GTK_MESSAGE_ERROR, "dialog-error"};
    case MB_ICONQUESTION: return {GTK_MESSAGE_QUESTION, "dialog-question"};
    case MB_ICONWARNING: return {GTK_MESSAGE_WARNING, "dialog-warning"};
    case MB_ICONINFORMATION: return {GTK_MESSAGE_INFO, "dialog-information"};
    default: return {GTK_MESSAGE_OTHER, nullptr};
    }
}

// GTK 3 message dialogs show no icon of their own any more; the image property still
// puts one beside the text, as desktop message boxes have it.
void showIcon(GtkWidget *box, const char *name) {
    if (!name) return;
    GtkWidget *image = gtk_image_new_from_icon_name(name, GTK_ICON_SIZE_DIALOG);
    gtk_widget_set_valign(image, GTK_ALIGN_START);
    gtk_widget_show(image);
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    gtk_message_dialog_set_image(GTK_MESSAGE_DIALOG(box), image);
    G_GNUC_END_IGNORE_DEPRECATIONS
}

// Button labels as GTK translates them for the user's language.
const char *buttonLabel(int32_t answer) {
    switch (answer) {
    case IDOK: return g_dgettext("gtk30", "_OK");
    case IDCANCEL: return g_dgettext("gtk30", "_Cancel");
    case IDABORT: return "_Abort";
    case IDRETRY: return "_Retry";
    case IDIGNORE: return "_Ignore";
    case IDYES: return g_dgettext("gtk30", "_Yes");
    case IDNO: return g_dgettext("gtk30", "_No");
    default: return "?";
    }
}

struct Answer {
    PromptLoop loop;
    int32_t value = 0;
    bool closable = true;
    int32_t cancelLike = IDCANCEL;
};

void onResponse(GtkDialog *, gint response, gpointer data) {
    auto *answer = static_cast<Answer *>(data);
    if (response <= 0) { // closed without a button (close box, Escape)
        if (!answer->closable) return;
        response = answer->cancelLike;
    }
    answer->value = response;
    answer->loop.finish();
}

std::string textWithCode(const window::MessageBoxPrompt &prompt) {
    std::string text = utf8(prompt.text);
    if (prompt.messageCode != 0) {
        char code[32];
        std::snprintf(code, sizeof code, "\n\n(0x%08X)", prompt.messageCode);
        text += code;
    }
    return text;
}

} // namespace

int32_t runMessageBox(const window::MessageBoxPrompt &prompt, GtkWindow *parent) {
    std::string text = textWithCode(prompt);
    Icon icon = iconOf(prompt.style);
    GtkWidget *box = gtk_message_dialog_new(parent, GTK_DIALOG_MODAL, icon.type, GTK_BUTTONS_NONE, "%s", text.c_str());
    showIcon(box, icon.name);
    gtk_window_set_title(GTK_WINDOW(box), utf8(prompt.caption).c_str());
    gtk_window_set_gravity(GTK_WINDOW(box), GDK_GRAVITY_STATIC); // centred frame on frame (widget_tree.cpp)
    gtk_window_set_position(GTK_WINDOW(box), parent ? GTK_WIN_POS_CENTER_ON_PARENT : GTK_WIN_POS_CENTER);
    gtk_window_set_skip_taskbar_hint(GTK_WINDOW(box), parent != nullptr);
    std::vector<int32_t> buttons = window::messageBoxButtons(prompt.style);
    for (int32_t answer : buttons) gtk_dialog_add_button(GTK_DIALOG(box), buttonLabel(answer), answer);
    std::size_t defaultIndex = (prompt.style & MB_DEFMASK) >> 8;
    if (defaultIndex >= buttons.size()) defaultIndex = 0;
    gtk_dialog_set_default_response(GTK_DIALOG(box), buttons[defaultIndex]);
    if (GtkWidget *button = gtk_dialog_get_widget_for_response(GTK_DIALOG(box), buttons[defaultIndex]))
        gtk_widget_grab_focus(button);
    Answer answer;
    answer.cancelLike = window::cancelLikeAnswer(prompt.style);
    answer.closable = answer.cancelLike == IDCANCEL || buttons.size() == 1;
    gtk_window_set_deletable(GTK_WINDOW(box), answer.closable);
    g_signal_connect(box, "response", G_CALLBACK(onResponse), &answer);
    // The close box and Escape answer through "response"; the window stays until the
    // loop is over.
    g_signal_connect(box, "delete-event", G_CALLBACK(gtk_true), nullptr);
    automation::reportWhenDrawn(box, {automation::ShownKind::MessageBox, box, nullptr, prompt.stringId});
    gtk_window_present(GTK_WINDOW(box));
    answer.loop.run();
    gtk_widget_destroy(box);
    return answer.value;
}

} // namespace tabra::gtk
