// GTK start-up and event pumping.
#include "platform/gtk/gtk_session.h"

#include <gtk/gtk.h>

#include <chrono>
#include <cstdlib>

namespace tabra::gtk {
namespace {

enum class SessionState { NotTried, Open, NoDisplay };
SessionState state = SessionState::NotTried;

bool hasDisplayVariable() {
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        const char *value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

} // namespace

bool startSession() {
    if (state == SessionState::NotTried) {
        state = SessionState::NoDisplay;
        // Without a display variable GTK could only fail; not even trying keeps the
        // process free of GTK (and of its warnings).
        if (hasDisplayVariable()) {
            gtk_disable_setlocale();
            if (gtk_init_check(nullptr, nullptr)) state = SessionState::Open;
        }
    }
    return state == SessionState::Open;
}

bool sessionStarted() { return state == SessionState::Open; }

void pumpEvents(int limit) {
    if (!sessionStarted()) return;
    for (int handled = 0; handled < limit && gtk_events_pending(); ++handled) gtk_main_iteration_do(FALSE);
}

void pumpUntil(const std::function<bool()> &done, int milliseconds) {
    if (!sessionStarted()) return;
    auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!done() && std::chrono::steady_clock::now() < deadline) {
        if (GdkDisplay *display = gdk_display_get_default()) gdk_display_flush(display);
        if (gtk_events_pending()) pumpEvents();
        else g_usleep(1000);
    }
}

void flushDisplay() {
    if (!sessionStarted()) return;
    if (GdkDisplay *display = gdk_display_get_default()) gdk_display_sync(display);
}

} // namespace tabra::gtk
