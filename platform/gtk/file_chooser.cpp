// The file chooser.
#include "platform/gtk/file_chooser.h"

#include "platform/gtk/gtk_automation.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/prompt_loop.h"

namespace tabra::gtk {
namespace {

constexpr int kWidth = 760;
constexpr int kHeight = 520;

struct Answer {
    PromptLoop loop;
    gint response = GTK_RESPONSE_CANCEL;
};

void onResponse(GtkDialog *, gint response, gpointer data) {
    auto *answer = static_cast<Answer *>(data);
    answer->response = response;
    answer->loop.finish();
}

// The chooser ignores its default size until it is mapped.
void onMap(GtkWidget *chooser, gpointer) { gtk_window_resize(GTK_WINDOW(chooser), kWidth, kHeight); }

void addFilters(GtkFileChooser *chooser, const window::FileNamePrompt &prompt) {
    for (const auto &[description, patterns] : prompt.filters) {
        GtkFileFilter *filter = gtk_file_filter_new();
        gtk_file_filter_set_name(filter, utf8(description).c_str());
        std::string all = utf8(patterns);
        std::size_t start = 0;
        while (start <= all.size()) {
            std::size_t end = all.find(';', start);
            if (end == std::string::npos) end = all.size();
            std::string pattern = all.substr(start, end - start);
            while (!pattern.empty() && pattern.front() == ' ') pattern.erase(0, 1);
            if (!pattern.empty()) gtk_file_filter_add_pattern(filter, pattern == "*.*" ? "*" : pattern.c_str());
            start = end + 1;
        }
        gtk_file_chooser_add_filter(chooser, filter);
    }
}

void propose(GtkFileChooser *chooser, const window::FileNamePrompt &prompt) {
    if (prompt.proposedName.empty()) return;
    std::string name = utf8(prompt.proposedName);
    gchar *folder = g_path_get_dirname(name.c_str());
    gchar *base = g_path_get_basename(name.c_str());
    bool hasFolder = name.find('/') != std::string::npos && g_file_test(folder, G_FILE_TEST_IS_DIR);
    if (prompt.save) {
        if (hasFolder) gtk_file_chooser_set_current_folder(chooser, folder);
        gtk_file_chooser_set_current_name(chooser, base);
    } else if (g_file_test(name.c_str(), G_FILE_TEST_EXISTS)) {
        gtk_file_chooser_set_filename(chooser, name.c_str());
    } else if (hasFolder) {
        gtk_file_chooser_set_current_folder(chooser, folder);
    }
    g_free(folder);
    g_free(base);
}

} // namespace

std::optional<std::u16string> runFileChooser(const window::FileNamePrompt &prompt, GtkWindow *parent) {
    GtkFileChooserAction action = prompt.save ? GTK_FILE_CHOOSER_ACTION_SAVE : GTK_FILE_CHOOSER_ACTION_OPEN;
    std::string title = utf8(prompt.title);
    GtkWidget *dialog = gtk_file_chooser_dialog_new(
        title.c_str(), parent, action, g_dgettext("gtk30", "_Cancel"), GTK_RESPONSE_CANCEL,
        prompt.save ? g_dgettext("gtk30", "_Save") : g_dgettext("gtk30", "_Open"), GTK_RESPONSE_ACCEPT, nullptr);
    auto *chooser = GTK_FILE_CHOOSER(dialog);
    gtk_window_set_modal(GTK_WINDOW(dialog), TRUE);
    gtk_dialog_set_default_response(GTK_DIALOG(dialog), GTK_RESPONSE_ACCEPT);
    gtk_file_chooser_set_local_only(chooser, TRUE);
    gtk_file_chooser_set_do_overwrite_confirmation(chooser, TRUE);
    addFilters(chooser, prompt);
    propose(chooser, prompt);
    g_signal_connect(dialog, "map", G_CALLBACK(onMap), nullptr);

    Answer answer;
    g_signal_connect(dialog, "response", G_CALLBACK(onResponse), &answer);
    // The close box and Escape answer through "response"; the window stays until the
    // loop is over.
    g_signal_connect(dialog, "delete-event", G_CALLBACK(gtk_true), nullptr);
    automation::reportWhenDrawn(dialog, {automation::ShownKind::FileChooser, dialog, nullptr, prompt.save ? 1 : 0});
    gtk_window_present(GTK_WINDOW(dialog));
    answer.loop.run();

    std::optional<std::u16string> chosen;
    if (answer.response == GTK_RESPONSE_ACCEPT) {
        if (gchar *name = gtk_file_chooser_get_filename(chooser)) {
            chosen = utf16(name);
            g_free(name);
        }
    }
    gtk_widget_destroy(dialog);
    return chosen;
}

} // namespace tabra::gtk
