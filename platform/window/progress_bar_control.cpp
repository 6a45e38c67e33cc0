// Progress bars: the position always stays within the range.
#include "platform/window/progress_bar_control.h"

#include "platform/window/message_dispatch.h"

#include <algorithm>

namespace tabra::window {
namespace {

void setPosition(Window &bar, ProgressBarState &state, int64_t position) {
    int32_t clamped = static_cast<int32_t>(std::clamp<int64_t>(position, state.minimum, state.maximum));
    if (clamped == state.position) return;
    state.position = clamped;
    announce(bar, Change::Position);
}

void setRange(Window &bar, ProgressBarState &state, int32_t minimum, int32_t maximum) {
    state.minimum = minimum;
    state.maximum = std::max(minimum, maximum);
    announce(bar, Change::Range);
    setPosition(bar, state, state.position);
}

} // namespace

bool progressBarMessage(Window &bar, uint32_t message, WPARAM wParam, LPARAM lParam, LRESULT &result) {
    auto *state = bar.as<ProgressBarState>();
    if (!state) return false;
    int32_t previous = state->position;
    switch (message) {
    case PBM_SETRANGE:
        result = MAKELRESULT(state->minimum, state->maximum);
        setRange(bar, *state, LOWORD(lParam), HIWORD(lParam));
        return true;
    case PBM_SETRANGE32:
        result = MAKELRESULT(state->minimum, state->maximum);
        setRange(bar, *state, static_cast<int32_t>(wParam), static_cast<int32_t>(lParam));
        return true;
    case PBM_GETRANGE: {
        struct Range {
            int32_t low, high;
        };
        if (auto *range = reinterpret_cast<Range *>(lParam)) *range = {state->minimum, state->maximum};
        result = wParam ? state->minimum : state->maximum;
        return true;
    }
    case PBM_SETPOS:
        setPosition(bar, *state, static_cast<int32_t>(wParam));
        result = previous;
        return true;
    case PBM_DELTAPOS:
        setPosition(bar, *state, static_cast<int64_t>(state->position) + static_cast<int32_t>(wParam));
        result = previous;
        return true;
    case PBM_SETSTEP:
        result = state->step;
        state->step = static_cast<int32_t>(wParam);
        return true;
    case PBM_STEPIT: {
        int64_t next = static_cast<int64_t>(state->position) + state->step;
        if (next > state->maximum) next = state->minimum + (next - state->maximum); // wraps as in Win32
        setPosition(bar, *state, next);
        result = previous;
        return true;
    }
    case PBM_GETPOS:
        result = state->position;
        return true;
    default:
        return false;
    }
}

} // namespace tabra::window
