// The library's own messages: a string of the resource library with up to three
// inserted texts, shown modally with the library's caption.
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel.h"
#include "tabra_connection.h"

namespace {

using tabra::core::ids::kMessage;

constexpr uint32_t kDefaultMessageCode = 0x8004A000u;

struct MessageCode {
    int32_t stringId;
    uint32_t code;
};

// Message codes by string identifier, ended by a zero pair.
constexpr MessageCode kMessageCodes[] = {
    {kMessage.outOfMemory, 0x8004A014u},    {kMessage.sdiFileInvalid, 0x8004A015u},
    {kMessage.fileFormat, 0x8004A015u},     {kMessage.noDataSource, 0x8004A02Eu},
    {kMessage.fileNotOpened, 0x8004A01Fu},  {kMessage.unbalancedParenthesis, 0x8004A031u},
    {kMessage.fileNotRead, 0x8004A033u},    {kMessage.fileNotWritten, 0x8004A034u},
    {0, 0},
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
    request.captionId = tabra::core::ids::kString.caption;
    request.textId = stringId;
    request.translationModule = tabra::module::kTranslationModuleName;
    request.insert1 = argument1;
    request.insert2 = argument2;
    request.insert3 = argument3;
    request.flag = 1;
    request.messageCode = messageCodeOf(stringId);
    return Ostrel_Message_Box(&request);
}
