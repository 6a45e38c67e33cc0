// Where user input may reach the engine: inside a modal loop (one GMainLoop per
// waiting dialog, nested on the caller's stack as dialogs open dialogs), or while a
// progress window's owner pumps events between work steps (then only for that
// progress window). Each wait is a frame; input is taken only by the innermost frame,
// and not again while an input of that frame is still being handled (a dialog
// procedure that runs long, or pumps events itself, does not receive the next click
// in the middle of the previous one).
#pragma once

#include "tabra_base.h"

#include <glib.h>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace tabra::gtk {

class InputFrames {
public:
    struct Frame {
        GMainLoop *loop = nullptr; // null: a pump of pending events
        HWND busy = nullptr;       // a pump: the progress window that takes input
        bool handling = false;     // an input of this frame is being handled
        bool done = false;         // the waiting loop may return
        guint timer = 0;           // the wake-up of a wait, while pending
    };

    // Runs a modal wait until an input was handled, a message was posted
    // (endInnermostWait), `wakeAt` came, or `stillWaiting` answers false (checked at
    // every turn of the loop: a host's timer that ends or destroys the dialog wakes it).
    void wait(std::optional<std::chrono::steady_clock::time_point> wakeAt, std::function<bool()> stillWaiting);
    // Handles the events that are waiting, taking input only for `busy`; with `until`,
    // goes on (sleeping briefly between rounds) until it answers true or `milliseconds`
    // passed.
    void pump(HWND busy, const std::function<bool()> &until = {}, int milliseconds = 0);

    // The frame that takes input for the window now, or null: the innermost frame,
    // when it is a wait or a pump for that very progress window, and is not handling
    // an input already.
    Frame *frameTaking(HWND window) const;
    // Lets the frame's loop return (a pump has nothing to end).
    static void end(Frame &frame);
    // Lets the innermost waiting loop return.
    void endInnermostWait();
    bool waiting() const;

private:
    std::vector<Frame *> frames_;
};

} // namespace tabra::gtk
