// The short-lived notice window (Ostrel_DisplayTempWind): a line of text in a colour,
// shown for a time or until it is destroyed.
#pragma once

#include <chrono>
#include <cstdint>

namespace tabra::window {

struct NoticeState {
    int32_t stringId = 0;
    int32_t seconds = 0;      // 0: until destroyed
    uint32_t colour = 0;      // 0x00BBGGRR
    std::chrono::steady_clock::time_point expiry{};
};

// Destroys the timed notices whose time is up.
void expireNotices();

} // namespace tabra::window
