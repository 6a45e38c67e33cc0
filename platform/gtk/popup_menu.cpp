// The popup menu.
#include "platform/gtk/popup_menu.h"

#include "platform/gtk/gtk_automation.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/prompt_loop.h"

namespace tabra::gtk {
namespace {

constexpr char kCommandKey[] = "tabra-command";

struct Choice {
    PromptLoop loop;
    int32_t command = 0;
};

void onActivate(GtkMenuItem *item, gpointer data) {
    auto *choice = static_cast<Choice *>(data);
    choice->command = GPOINTER_TO_INT(g_object_get_data(G_OBJECT(item), kCommandKey));
}

gboolean finishLater(gpointer data) {
    static_cast<Choice *>(data)->loop.finish();
    return G_SOURCE_REMOVE;
}

// "deactivate" comes before the chosen item's "activate": the loop ends once both ran.
void onDeactivate(GtkMenuShell *, gpointer data) { g_idle_add(finishLater, data); }

GtkWidget *buildMenu(const std::vector<window::MenuEntry> &entries, Choice &choice) {
    GtkWidget *menu = gtk_menu_new();
    for (const auto &entry : entries) {
        GtkWidget *item = nullptr;
        if (entry.separator) {
            item = gtk_separator_menu_item_new();
        } else {
            std::u16string label = entry.text;
            if (auto tab = label.find(u'\t'); tab != std::u16string::npos) label.resize(tab); // accelerator hint
            item = entry.checked ? gtk_check_menu_item_new_with_mnemonic(mnemonicLabel(label).c_str())
                                 : gtk_menu_item_new_with_mnemonic(mnemonicLabel(label).c_str());
            if (entry.checked) gtk_check_menu_item_set_active(GTK_CHECK_MENU_ITEM(item), TRUE);
            gtk_widget_set_sensitive(item, !entry.grayed);
            if (!entry.children.empty()) {
                gtk_menu_item_set_submenu(GTK_MENU_ITEM(item), buildMenu(entry.children, choice));
            } else {
                g_object_set_data(G_OBJECT(item), kCommandKey, GINT_TO_POINTER(entry.command));
                g_signal_connect(item, "activate", G_CALLBACK(onActivate), &choice);
            }
        }
        gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
        gtk_widget_show(item);
    }
    return menu;
}

// GTK wants the event that asked for the menu; a menu asked for by a program (not by a
// click being handled) gets a button press made up for it.
GdkEvent *triggerEvent(GtkWindow *parent) {
    if (GdkEvent *current = gtk_get_current_event()) return current;
    GdkDisplay *display = gdk_display_get_default();
    GdkSeat *seat = display ? gdk_display_get_default_seat(display) : nullptr;
    GdkDevice *pointer = seat ? gdk_seat_get_pointer(seat) : nullptr;
    GdkWindow *window = parent ? gtk_widget_get_window(GTK_WIDGET(parent)) : nullptr;
    if (!window) window = gdk_get_default_root_window();
    GdkEvent *event = gdk_event_new(GDK_BUTTON_PRESS);
    event->button.window = GDK_WINDOW(g_object_ref(window));
    event->button.button = GDK_BUTTON_SECONDARY;
    event->button.time = GDK_CURRENT_TIME;
    if (pointer) {
        gdk_event_set_device(event, pointer);
        gdouble x = 0, y = 0;
        gdk_window_get_device_position_double(window, pointer, &x, &y, nullptr);
        event->button.x = x;
        event->button.y = y;
    }
    return event;
}

// Shows the menu with its corner at a point of the screen: GTK places menus beside a
// rectangle of a window, here one pixel of the parent's window (or the screen's).
void popupAt(GtkWidget *menu, GtkWindow *parent, int32_t x, int32_t y, GdkEvent *trigger) {
    GdkWindow *window = parent ? gtk_widget_get_window(GTK_WIDGET(parent)) : nullptr;
    if (!window) window = gdk_get_default_root_window();
    int originX = 0, originY = 0;
    gdk_window_get_origin(window, &originX, &originY);
    GdkRectangle point{x - originX, y - originY, 1, 1};
    g_object_set(menu, "anchor-hints", GDK_ANCHOR_FLIP | GDK_ANCHOR_SLIDE | GDK_ANCHOR_RESIZE, nullptr);
    gtk_menu_popup_at_rect(GTK_MENU(menu), window, &point, GDK_GRAVITY_NORTH_WEST, GDK_GRAVITY_NORTH_WEST, trigger);
}

} // namespace

int32_t runPopupMenu(const window::MenuPrompt &prompt, GtkWindow *parent) {
    Choice choice;
    GtkWidget *menu = buildMenu(prompt.entries, choice);
    g_object_ref_sink(menu);
    if (parent) gtk_menu_attach_to_widget(GTK_MENU(menu), GTK_WIDGET(parent), nullptr);
    gulong deactivated = g_signal_connect(menu, "deactivate", G_CALLBACK(onDeactivate), &choice);
    automation::reportWhenDrawn(menu, {automation::ShownKind::PopupMenu, menu, nullptr, prompt.menuId});
    GdkEvent *trigger = triggerEvent(parent);
    popupAt(menu, parent, prompt.x, prompt.y, trigger);
    gdk_event_free(trigger);
    if (gtk_widget_get_visible(menu)) choice.loop.run();
    else g_idle_remove_by_data(&choice); // not shown (the pointer could not be grabbed): dismissed
    g_signal_handler_disconnect(menu, deactivated);
    if (parent) gtk_menu_detach(GTK_MENU(menu));
    gtk_widget_destroy(menu);
    g_object_unref(menu);
    return choice.command;
}

} // namespace tabra::gtk
