// The GTK renderer.
#include "platform/gtk/gtk_renderer.h"

#include "platform/gtk/file_chooser.h"
#include "platform/gtk/gtk_automation.h"
#include "platform/gtk/gtk_session.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/message_box_window.h"
#include "platform/gtk/popup_menu.h"
#include "platform/gtk/state_sync.h"
#include "platform/window/focus.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_registry.h"
#include "tabra_window.h"

#include <algorithm>
#include <cstdio>

namespace tabra::gtk {
namespace {

using window::Change;
using window::WindowKind;

GtkRenderer *current = nullptr;

// A caller's work loop may update its progress window thousands of times a second;
// events are handled at most this often in between (often enough for Abort to answer
// at once, rarely enough to cost the work nothing).
constexpr auto kPumpInterval = std::chrono::milliseconds(15);
// How long a progress window or notice may take to appear before the caller goes on.
constexpr int kAppearMilliseconds = 500;

void removeWindow(std::vector<GtkWidget *> &windows, GtkWidget *window) {
    windows.erase(std::remove(windows.begin(), windows.end(), window), windows.end());
}

} // namespace

// Engine -> widget updates fire the widgets' signals; while this lives, handlers know
// they are not the user's.
class GtkRenderer::Mirroring {
public:
    explicit Mirroring(GtkRenderer &renderer) : renderer_(renderer) { ++renderer_.mirroring_; }
    ~Mirroring() { --renderer_.mirroring_; }
    Mirroring(const Mirroring &) = delete;
    Mirroring &operator=(const Mirroring &) = delete;

private:
    GtkRenderer &renderer_;
};

GtkRenderer::GtkRenderer() {
    current = this;
    setInputGate(this);
}

GtkRenderer::~GtkRenderer() {
    if (current != this) return;
    current = nullptr;
    setInputGate(nullptr);
}

GtkRenderer *GtkRenderer::instance() { return current; }

// ---- Mirroring the window tree ----

void GtkRenderer::windowCreated(HWND root) {
    auto window = window::findWindow(root);
    if (!window) return;
    Mirroring mirroring(*this);
    switch (window->kind) {
    case WindowKind::Dialog: {
        WidgetRecord *record = tree_.build(*window);
        if (!record || !record->topLevel) break;
        gtk_window_set_title(GTK_WINDOW(record->outer), utf8(window->text).c_str());
        const auto *state = window->as<window::DialogState>();
        if (state->modal || !window->visible) break; // modal dialogs appear when their loop starts
        GtkWindow *parent = parentFor(state->owner);
        if (parent) gtk_window_set_transient_for(GTK_WINDOW(record->outer), parent);
        gtk_window_set_position(GTK_WINDOW(record->outer), parent ? GTK_WIN_POS_CENTER_ON_PARENT : GTK_WIN_POS_CENTER);
        tree_.showDefaultButton(root);
        tree_.showFocus(root);
        automation::reportWhenDrawn(record->outer, {automation::ShownKind::Dialog, record->outer, root, state->templateId});
        gtk_widget_show(record->outer);
        break;
    }
    case WindowKind::Notice: // both appear in the engine's next pumpPendingInput
        notices_[root] = std::make_unique<NoticePopup>(*window, parentFor(nullptr));
        break;
    case WindowKind::ProgressIndicator: {
        const auto *state = window->as<window::ProgressIndicatorState>();
        auto &progress = progress_[root] = std::make_unique<ProgressWindow>(*window, parentFor(state->owner));
        modalWindows_.push_back(progress->window());
        applyCursor(progress->window());
        break;
    }
    default:
        break;
    }
}

void GtkRenderer::windowChanged(HWND handle, Change change, int32_t index) {
    auto window = window::findWindow(handle);
    if (!window) return;
    Mirroring mirroring(*this);
    if (auto progress = progress_.find(handle); progress != progress_.end()) {
        progress->second->update(*window, change);
        return;
    }
    if (auto notice = notices_.find(handle); notice != notices_.end()) {
        if (change == Change::Text) notice->second->showText(*window);
        return;
    }
    WidgetRecord *record = tree_.find(handle);
    if (!record) return;
    if (window->kind != WindowKind::Dialog) {
        applyChange(*record, *window, change, index, tree_);
        if (change == Change::Style && window->kind == WindowKind::Button)
            tree_.showDefaultButton(window::topLevelOf(handle));
        return;
    }
    switch (change) { // a dialog or a page
    case Change::Text:
        if (record->topLevel) gtk_window_set_title(GTK_WINDOW(record->outer), utf8(window->text).c_str());
        break;
    case Change::Visible: gtk_widget_set_visible(record->outer, window->visible); break;
    case Change::Enabled: gtk_widget_set_sensitive(record->fixed, window->enabled); break;
    case Change::DefaultButton: tree_.showDefaultButton(window::topLevelOf(handle)); break;
    case Change::Geometry:
        if (record->topLevel) centre(handle);
        break;
    default: break;
    }
}

void GtkRenderer::windowDestroying(HWND root) {
    Mirroring mirroring(*this);
    if (auto progress = progress_.find(root); progress != progress_.end()) {
        removeWindow(modalWindows_, progress->second->window());
        progress_.erase(progress);
    } else if (auto notice = notices_.find(root); notice != notices_.end()) {
        notices_.erase(notice);
    } else {
        if (WidgetRecord *record = tree_.find(root); record && record->topLevel) removeWindow(modalWindows_, record->outer);
        tree_.destroy(root);
    }
    flushDisplay(); // gone from the screen now, not at the next event loop
}

// ---- Modal loops ----

void GtkRenderer::modalLoopStarted(HWND dialog) {
    WidgetRecord *record = tree_.find(dialog);
    auto window = window::findWindow(dialog);
    if (!record || !record->topLevel || !window) return;
    Mirroring mirroring(*this);
    const auto *state = window->as<window::DialogState>();
    GtkWindow *parent = parentFor(state->owner);
    auto *shown = GTK_WINDOW(record->outer);
    if (parent) gtk_window_set_transient_for(shown, parent);
    gtk_window_set_modal(shown, TRUE);
    gtk_window_set_position(shown, parent ? GTK_WIN_POS_CENTER_ON_PARENT : GTK_WIN_POS_CENTER);
    tree_.showDefaultButton(dialog);
    tree_.showFocus(dialog);
    automation::reportWhenDrawn(record->outer, {automation::ShownKind::Dialog, record->outer, dialog, state->templateId});
    gtk_widget_set_visible(record->outer, window->visible);
    if (window->visible) gtk_window_present(shown);
    applyCursor(record->outer);
    modalWindows_.push_back(record->outer);
    if (state->centered) centre(dialog);
}

bool GtkRenderer::waitForInput(HWND dialog) {
    WidgetRecord *record = tree_.find(dialog);
    // A dialog that is not on screen can get no input: the engine cancels it.
    if (!record || !record->topLevel || !gtk_widget_get_visible(record->outer)) return false;
    frames_.wait(nextNoticeExpiry(), [dialog] {
        auto window = window::findWindow(dialog);
        const auto *state = window ? window->as<window::DialogState>() : nullptr;
        return state && !window->destroyed && !state->ended;
    });
    return true;
}

void GtkRenderer::modalLoopEnded(HWND dialog) {
    WidgetRecord *record = tree_.find(dialog);
    if (!record || !record->topLevel) return;
    Mirroring mirroring(*this);
    gtk_widget_hide(record->outer);
    removeWindow(modalWindows_, record->outer);
    flushDisplay();
}

void GtkRenderer::messagePosted() { frames_.endInnermostWait(); }

void GtkRenderer::pumpPendingInput(HWND busy) {
    // A new progress window or notice is on screen before the caller goes on.
    auto appeared = [this] {
        for (const auto &entry : progress_)
            if (!entry.second->appeared()) return false;
        for (const auto &entry : notices_)
            if (!entry.second->appeared()) return false;
        return true;
    };
    auto now = std::chrono::steady_clock::now();
    bool appearing = !appeared();
    if (!appearing && now - lastPump_ < kPumpInterval) return;
    frames_.pump(busy, appearing ? std::function<bool()>(appeared) : std::function<bool()>(), kAppearMilliseconds);
    lastPump_ = std::chrono::steady_clock::now();
    if (!appearing) return;
    for (const auto &entry : progress_) entry.second->stopWaiting();
    for (const auto &entry : notices_) entry.second->stopWaiting();
}

// ---- Prompts ----

int32_t GtkRenderer::messageBox(const window::MessageBoxPrompt &prompt) {
    return runMessageBox(prompt, parentFor(prompt.owner));
}

int32_t GtkRenderer::popupMenu(const window::MenuPrompt &prompt) { return runPopupMenu(prompt, parentFor(prompt.owner)); }

std::optional<std::u16string> GtkRenderer::fileName(const window::FileNamePrompt &prompt) {
    return runFileChooser(prompt, parentFor(prompt.owner));
}

std::optional<POINT> GtkRenderer::pointerPosition() {
    GdkDisplay *display = gdk_display_get_default();
    GdkSeat *seat = display ? gdk_display_get_default_seat(display) : nullptr;
    GdkDevice *pointer = seat ? gdk_seat_get_pointer(seat) : nullptr;
    if (!pointer) return std::nullopt;
    int x = 0, y = 0;
    gdk_device_get_position(pointer, nullptr, &x, &y);
    return POINT{x, y};
}

// ---- Feedback ----

void GtkRenderer::beep(uint32_t) {
    if (GdkDisplay *display = gdk_display_get_default()) gdk_display_beep(display);
}

void GtkRenderer::cursorChanged(int32_t cursorId) {
    cursor_ = cursorId;
    for (GtkWidget *window : modalWindows_) applyCursor(window);
    flushDisplay();
}

void GtkRenderer::applyCursor(GtkWidget *window) {
    gtk_widget_realize(window);
    GdkWindow *shown = gtk_widget_get_window(window);
    if (!shown) return;
    GdkCursor *cursor = cursor_ == IDC_WAIT ? gdk_cursor_new_from_name(gdk_window_get_display(shown), "wait") : nullptr;
    gdk_window_set_cursor(shown, cursor);
    if (cursor) g_object_unref(cursor);
}

void GtkRenderer::helpRequested(HMODULE, int32_t topic) {
    window::MessageBoxPrompt prompt;
    prompt.caption = u"Help";
    std::string digits = std::to_string(topic);
    prompt.text = u"Help topic " + std::u16string(digits.begin(), digits.end());
    prompt.style = MB_OK | MB_ICONINFORMATION;
    runMessageBox(prompt, parentFor(nullptr));
}

void GtkRenderer::engineProblem(const std::string &description) { std::fprintf(stderr, "tabra: %s\n", description.c_str()); }

// ---- Input ----

void GtkRenderer::deliver(HWND handle, const std::function<window::input::Refusal()> &input) {
    if (mirroring_ > 0) return;
    InputFrames::Frame *frame = frames_.frameTaking(handle);

    if (!frame) { // nobody waits for the user now: the widget goes back to the engine's state
        resync(handle);
        return;
    }
    frame->handling = true;
    input(); // a refused input changed nothing; the widget is put back below
    frame->handling = false;
    resync(handle);
    InputFrames::end(*frame);
}

void GtkRenderer::resync(HWND handle) {
    auto window = window::findWindow(handle);
    if (!window) return;
    Mirroring mirroring(*this);
    if (auto progress = progress_.find(handle); progress != progress_.end()) {
        progress->second->update(*window, Change::Style);
        return;
    }
    WidgetRecord *record = tree_.find(handle);
    if (record && window->kind != WindowKind::Dialog) syncAfterInput(*record, *window, tree_);
}

// ---- Places ----

GtkWindow *GtkRenderer::parentFor(HWND owner) {
    if (GtkWidget *window = tree_.windowShowing(owner); window && gtk_widget_get_visible(window)) return GTK_WINDOW(window);
    if (auto progress = progress_.find(owner); progress != progress_.end()) return GTK_WINDOW(progress->second->window());
    return modalWindows_.empty() ? nullptr : GTK_WINDOW(modalWindows_.back());
}

void GtkRenderer::centre(HWND dialog) {
    auto window = window::findWindow(dialog);
    GtkWidget *shown = tree_.windowShowing(dialog);
    const auto *state = window ? window->as<window::DialogState>() : nullptr;
    if (!state || !shown) return;
    GtkWidget *reference = state->centerReference ? tree_.windowShowing(state->centerReference) : nullptr;
    if (!reference) reference = GTK_WIDGET(gtk_window_get_transient_for(GTK_WINDOW(shown)));
    if (!gtk_widget_get_visible(shown)) {
        gtk_window_set_position(GTK_WINDOW(shown), reference ? GTK_WIN_POS_CENTER_ON_PARENT : GTK_WIN_POS_CENTER);
        return;
    }
    GdkRectangle area{};
    if (reference && gtk_widget_get_visible(reference)) {
        gtk_window_get_position(GTK_WINDOW(reference), &area.x, &area.y);
        gtk_window_get_size(GTK_WINDOW(reference), &area.width, &area.height);
    } else {
        GdkDisplay *display = gtk_widget_get_display(shown);
        GdkMonitor *monitor = gdk_display_get_monitor_at_window(display, gtk_widget_get_window(shown));
        if (!monitor) return;
        gdk_monitor_get_workarea(monitor, &area);
    }
    int width = 0, height = 0;
    gtk_window_get_size(GTK_WINDOW(shown), &width, &height);
    gtk_window_move(GTK_WINDOW(shown), area.x + (area.width - width) / 2, area.y + (area.height - height) / 2);
}

std::optional<std::chrono::steady_clock::time_point> GtkRenderer::nextNoticeExpiry() const {
    std::optional<std::chrono::steady_clock::time_point> next;
    for (const auto &entry : notices_) {
        auto notice = window::findWindow(entry.first);
        const auto *state = notice ? notice->as<window::NoticeState>() : nullptr;
        if (!state || state->seconds <= 0) continue;
        if (!next || state->expiry < *next) next = state->expiry;
    }
    return next;
}

// ---- Automation ----

GtkWidget *GtkRenderer::widgetOf(HWND handle) {
    if (auto progress = progress_.find(handle); progress != progress_.end()) return progress->second->window();
    if (auto notice = notices_.find(handle); notice != notices_.end()) return notice->second->window();
    WidgetRecord *record = tree_.find(handle);
    if (!record) return nullptr;
    return record->topLevel ? record->outer : record->inner;
}

GtkWidget *GtkRenderer::abortButtonOf(HWND indicator) {
    auto progress = progress_.find(indicator);
    return progress == progress_.end() ? nullptr : progress->second->abortButton();
}

} // namespace tabra::gtk

namespace tabra::window {

std::unique_ptr<Renderer> createGtkRenderer() {
    if (!gtk::startSession()) return nullptr;
    return std::make_unique<gtk::GtkRenderer>();
}

} // namespace tabra::window

namespace tabra::gtk::automation {

GtkWidget *widgetOf(HWND window) {
    GtkRenderer *renderer = GtkRenderer::instance();
    return renderer ? renderer->widgetOf(window) : nullptr;
}

GtkWidget *abortButtonOf(HWND indicator) {
    GtkRenderer *renderer = GtkRenderer::instance();
    return renderer ? renderer->abortButtonOf(indicator) : nullptr;
}

} // namespace tabra::gtk::automation
