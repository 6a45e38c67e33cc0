// The message for a file error: one text per error code, the file name inserted.
#include "ostrel_ui.h"

extern "C" int32_t Ostrel_ErrorHandler(HMODULE module, int32_t captionId, int32_t errorCode,
                                       const char16_t *fileName) {
    if (errorCode < OSTREL_FILE_ERROR_ACCESS || errorCode > OSTREL_FILE_ERROR_OTHER)
        errorCode = OSTREL_FILE_ERROR_OTHER;
    OstrelMessageBoxRequest request{};
    request.module = module;
    request.captionId = captionId;
    request.textId = OSTREL_FILE_ERROR_STRINGS + errorCode;
    request.insert1 = fileName != nullptr ? fileName : u"";
    request.flag = 1;
    return Ostrel_Message_Box(&request);
}
