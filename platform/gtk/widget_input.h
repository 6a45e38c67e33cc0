// Widgets -> engine: the signals of the widgets turned into the user-input calls of
// platform/window/user_input.h, which change the engine's state and notify the dialog
// as the user's gesture does in Win32. Nothing here changes engine state directly.
//
// Every delivery goes through the InputGate (the renderer), which decides whether the
// engine takes input now: not while the renderer mirrors engine changes into the
// widgets (those updates fire the same signals), and only while a modal loop or a
// progress window waits for the user.
#pragma once

#include "platform/gtk/widget_record.h"
#include "platform/window/user_input.h"

#include <functional>

namespace tabra::gtk {

class InputGate {
public:
    virtual ~InputGate() = default;
    // True while the renderer puts engine state into widgets.
    virtual bool mirroring() const = 0;
    // Runs the input for the window (a control, dialog or progress indicator) when the
    // engine takes input now, then brings the widgets back in step with the engine
    // and lets the waiting loop go on; otherwise only restores the widgets.
    virtual void deliver(HWND window, const std::function<window::input::Refusal()> &input) = 0;
};

// The gate every handler delivers through (one renderer per process).
void setInputGate(InputGate *gate);
// Delivers an input through the gate (for windows with handlers of their own).
void deliverInput(HWND window, const std::function<window::input::Refusal()> &input);

// Connects the signals of a control's widgets.
void connectControlInput(const WidgetRecord &record, const window::Window &control);
// Connects the check boxes of a list view's items (a toggle cell of its first column).
void connectItemChecks(GtkCellRenderer *toggle, HWND listView);
// Connects the close box, the dialog keys and focus changes of a dialog's window.
void connectDialogInput(GtkWidget *window, HWND dialog);

// The engine window a widget shows (the widget itself or its nearest ancestor that
// shows one), or null.
HWND windowOfWidget(GtkWidget *widget);
void markWidget(GtkWidget *widget, HWND window);

} // namespace tabra::gtk
