// The library's own messages: a string of the resource library with up to three
// inserted texts, shown modally with the library's caption.
#include "core/diagnostics/message_ids.h"
#include "core/module/module_state.h"
#include "ostrel.h"
#include "tabra_connection.h"

namespace {

constexpr uint32_t kDefaultMessageCode = 0x8004A000u;

struct MessageCode {
    int32_t stringId;
    uint32_t code;
};

// Message codes by string identifier, ended by a zero pair.
constexpr MessageCode kMessageCodes[] = {
    {1600, 0x8004A014u}, {1601, 0x8004A015u}, {1602, 0x8004A015u}, {1607, 0x8004A02Eu}, {1615, 0x8004A01Fu},
    {1618, 0x8004A031u}, {1613, 0x8004A033u}, {1614, 0x8004A034u}, {0, 0},
};

// Key lookup in a zero-terminated pair table, with a default.
uint32_t messageCodeOf(int32_t stringId) {
    for (const MessageCode *entry = kMessageCodes; entry->stringId != 0; ++entry)
        if (entry->stringId == stringId) return entry->code;
    return kDefaultMessageCode;
}

} // namespace

extern "C" int32_t ShowMessage(int32_t stringId, const char16_t *argument1, const char16_t *argument2,
                               const char16_t *argument3) {
    OstrelMessageBoxRequest request{};
    request.module = tabra::module::resourceLibrary();
    request.captionId = tabra::message::kCaption;
    request.textId = stringId;
    request.translationModule = tabra::module::kTranslationModuleName;
    request.insert1 = argument1;
    request.insert2 = argument2;
    request.insert3 = argument3;
    request.flag = 1;
    request.messageCode = messageCodeOf(stringId);
    return Ostrel_Message_Box(&request);
}
