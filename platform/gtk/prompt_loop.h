// The loop of a prompt that is modal on its own (message box, file chooser, popup
// menu): runs on the caller's stack until the prompt has its answer. Engine input
// does not happen meanwhile (see input_frames.h: the frame that opened the prompt is
// busy handling an input, or there is none).
#pragma once

#include <glib.h>

namespace tabra::gtk {

class PromptLoop {
public:
    PromptLoop() : loop_(g_main_loop_new(nullptr, FALSE)) {}
    ~PromptLoop() { g_main_loop_unref(loop_); }
    PromptLoop(const PromptLoop &) = delete;
    PromptLoop &operator=(const PromptLoop &) = delete;

    void run() {
        while (!done_) g_main_loop_run(loop_);
    }
    void finish() {
        done_ = true;
        g_main_loop_quit(loop_);
    }
    bool finished() const { return done_; }

private:
    GMainLoop *loop_;
    bool done_ = false;
};

} // namespace tabra::gtk
