// The automation hook of the GTK renderer, for tests and demonstrations (internal, not
// exported): a callback told each time a window of the library is on screen and drawn
// (a dialog, message box, file chooser, popup menu, notice or progress window), and
// helpers that act on it as a user would, through the display server: clicking a
// widget, pressing a key, and saving what the screen shows as PNG.
//
// The callback runs inside the window's event loop, once per window; it may act
// (click OK, type, choose) and the modal loop then ends with the user's result.
#pragma once

#include "tabra_base.h"

#include <gtk/gtk.h>

#include <cstdint>
#include <functional>
#include <string>

namespace tabra::gtk::automation {

enum class ShownKind { Dialog, MessageBox, FileChooser, PopupMenu, Notice, Progress };

const char *shownKindName(ShownKind kind);

struct Shown {
    ShownKind kind = ShownKind::Dialog;
    GtkWidget *window = nullptr; // the top-level widget on screen (a GtkMenu for popup menus)
    HWND handle = nullptr;       // the engine window (dialog, notice, progress); null for prompts
    int32_t id = 0;              // template id of a dialog, string id of a message or notice, menu id
};

using ShownCallback = std::function<void(const Shown &)>;

// Installs the callback (an empty one removes it).
void setShownCallback(ShownCallback callback);

// The renderer's side: calls the callback once `window` has been drawn.
void reportWhenDrawn(GtkWidget *window, const Shown &shown);

// The widget that shows an engine control (its entry, button, tree view, ...), or its
// window for a dialog, notice or progress window; null when the renderer shows none.
GtkWidget *widgetOf(HWND window);
// The Abort button of a progress window, or null.
GtkWidget *abortButtonOf(HWND progressIndicator);
// The button of a message box that answers `answer` (IDOK, IDYES, ...), or null.
GtkWidget *messageBoxButton(GtkWidget *messageBox, int32_t answer);

// A press and release of the first mouse button at the widget's centre, sent through
// the display server like a user's click (the pointer moves there). False when the
// widget is not on screen.
bool click(GtkWidget *widget);
// The same with any button at a point of the widget (its allocation's coordinates).
bool clickAt(GtkWidget *widget, int x, int y, unsigned button);
// A key press and release (a GDK key value such as GDK_KEY_Escape) for the window,
// with modifiers held (GDK_SHIFT_MASK, GDK_MOD1_MASK for Alt, ...).
bool pressKey(GtkWidget *window, unsigned keyValue, GdkModifierType modifiers = static_cast<GdkModifierType>(0));

// The pixels of a top-level window with the frame a window manager gives it (title
// bar, borders), as the screen shows them, as PNG; without a window manager the window
// alone. The event loop runs briefly first, so that changes just made are drawn
// (events waiting then are handled too).
bool saveFramedWindowImage(GtkWidget *window, const std::string &path);
// The whole screen as PNG (stacked windows, menus).
bool saveScreenImage(const std::string &path);

} // namespace tabra::gtk::automation
