// The exported bounded copy and append, and the blank test.
#include "ostrel_text.h"
#include "platform/text/bounded_text.h"

using namespace tabra::platform;

extern "C" {

int32_t OstrelCopyString(char16_t *destination, const char16_t *source, int32_t capacity) {
    return writeBounded(destination, capacity, viewOf(source));
}

int32_t OstrelAppendString(char16_t *destination, const char16_t *source, int32_t capacity) {
    if (!destination || capacity < 1)
        return -1;
    const std::size_t present = viewOfBuffer(destination, static_cast<std::size_t>(capacity)).size();
    destination[present] = u'\0';
    const int32_t appended =
        writeBounded(destination + present, capacity - static_cast<int32_t>(present), viewOf(source));
    return static_cast<int32_t>(present) + appended;
}

int32_t Ostrel_IsBlankString(const char16_t *text) { return isBlank(viewOf(text)) ? 1 : 0; }

} // extern "C"
