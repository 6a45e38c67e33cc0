// Notices: a window the renderer shows without a modal loop. Timed notices go away on
// their own the next time the library handles input after their time is up.
#include "platform/window/notice_window.h"

#include "ostrel_ui.h"
#include "platform/window/dialog_creation.h"
#include "platform/window/renderer_selection.h"
#include "platform/widgets/resource_strings.h"
#include "platform/window/window_lifetime.h"
#include "platform/window/window_registry.h"

#include <algorithm>
#include <vector>

namespace tabra::window {
namespace {

std::vector<HWND> &notices() {
    static auto *live = new std::vector<HWND>;
    return *live;
}

} // namespace

void expireNotices() {
    auto now = std::chrono::steady_clock::now();
    auto &live = notices();
    std::vector<HWND> expired;
    for (HWND handle : live) {
        auto notice = findWindow(handle);
        const auto *state = notice ? notice->as<NoticeState>() : nullptr;
        if (!state || (state->seconds > 0 && now >= state->expiry)) expired.push_back(handle);
    }
    for (HWND handle : expired) {
        live.erase(std::remove(live.begin(), live.end(), handle), live.end());
        destroyWindow(handle);
    }
}

} // namespace tabra::window

using namespace tabra::window;

extern "C" HWND Ostrel_DisplayTempWind(HMODULE module, int32_t stringId, int32_t time, uint32_t colour) {
    auto text = loadResourceString(module, stringId);
    if (!text) return nullptr;
    expireNotices();
    auto notice = std::make_shared<Window>();
    notice->kind = WindowKind::Notice;
    notice->text = text->text;
    notice->visible = true;
    NoticeState state;
    state.stringId = stringId;
    state.seconds = std::max(time, 0);
    state.colour = colour;
    state.expiry = std::chrono::steady_clock::now() + std::chrono::seconds(state.seconds);
    notice->state = state;
    HWND handle = registerWindow(notice);
    notices().push_back(handle);
    announceTree(handle);
    activeRenderer().pumpPendingInput(nullptr);
    return handle;
}
