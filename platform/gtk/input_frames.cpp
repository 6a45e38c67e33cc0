// Modal waits and event pumps.
#include "platform/gtk/input_frames.h"

#include "platform/gtk/gtk_session.h"

#include <gtk/gtk.h>

namespace tabra::gtk {
namespace {

// Keeps the frame on the stack while it runs.
class FrameEntry {
public:
    FrameEntry(std::vector<InputFrames::Frame *> &frames, InputFrames::Frame &frame) : frames_(frames) {
        frames_.push_back(&frame);
    }
    ~FrameEntry() { frames_.pop_back(); }
    FrameEntry(const FrameEntry &) = delete;
    FrameEntry &operator=(const FrameEntry &) = delete;

private:
    std::vector<InputFrames::Frame *> &frames_;
};

// A source that is ready as soon as the waiting dialog no longer waits.
struct EndWatch {
    GSource source;
    InputFrames::Frame *frame;
    std::function<bool()> *stillWaiting;
};

gboolean endWatchReady(GSource *source) {
    auto *watch = reinterpret_cast<EndWatch *>(source);
    return !(*watch->stillWaiting)();
}

gboolean endWatchPrepare(GSource *source, gint *timeout) {
    *timeout = -1;
    return endWatchReady(source);
}

gboolean endWatchDispatch(GSource *source, GSourceFunc, gpointer) {
    InputFrames::end(*reinterpret_cast<EndWatch *>(source)->frame);
    return G_SOURCE_CONTINUE;
}

GSourceFuncs endWatchFunctions = {endWatchPrepare, endWatchReady, endWatchDispatch, nullptr, nullptr, nullptr};

gboolean wakeUp(gpointer data) {
    auto *frame = static_cast<InputFrames::Frame *>(data);
    frame->timer = 0;
    InputFrames::end(*frame);
    return G_SOURCE_REMOVE;
}

} // namespace

void InputFrames::wait(std::optional<std::chrono::steady_clock::time_point> wakeAt, std::function<bool()> stillWaiting) {
    Frame frame;
    frame.loop = g_main_loop_new(nullptr, FALSE);
    FrameEntry entry(frames_, frame);
    GSource *watch = g_source_new(&endWatchFunctions, sizeof(EndWatch));
    reinterpret_cast<EndWatch *>(watch)->frame = &frame;
    reinterpret_cast<EndWatch *>(watch)->stillWaiting = &stillWaiting;
    g_source_attach(watch, nullptr);
    if (wakeAt) {
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(*wakeAt - std::chrono::steady_clock::now());
        frame.timer = g_timeout_add(static_cast<guint>(left.count() > 0 ? left.count() : 0), wakeUp, &frame);
    }
    while (!frame.done && stillWaiting()) g_main_loop_run(frame.loop);
    if (frame.timer) g_source_remove(frame.timer);
    g_source_destroy(watch);
    g_source_unref(watch);
    g_main_loop_unref(frame.loop);
}

void InputFrames::pump(HWND busy, const std::function<bool()> &until, int milliseconds) {
    Frame frame;
    frame.busy = busy;
    FrameEntry entry(frames_, frame);
    pumpEvents();
    if (until) pumpUntil(until, milliseconds);
}

InputFrames::Frame *InputFrames::frameTaking(HWND window) const {
    if (frames_.empty()) return nullptr;
    Frame *innermost = frames_.back();
    if (innermost->handling) return nullptr;
    if (!innermost->loop && (!innermost->busy || window != innermost->busy)) return nullptr;
    return innermost;
}

void InputFrames::end(Frame &frame) {
    if (!frame.loop) return;
    frame.done = true;
    g_main_loop_quit(frame.loop);
}

void InputFrames::endInnermostWait() {
    for (auto it = frames_.rbegin(); it != frames_.rend(); ++it) {
        if (!(*it)->loop) continue;
        end(**it);
        return;
    }
}

bool InputFrames::waiting() const {
    for (const Frame *frame : frames_)
        if (frame->loop) return true;
    return false;
}

} // namespace tabra::gtk
