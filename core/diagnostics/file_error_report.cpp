// File errors shown through the in-house error handler.
#include "core/diagnostics/file_error_report.h"

#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel_ui.h"

#include <cerrno>

namespace tabra::diagnostics {

int32_t fileErrorCode(int errorNumber) {
    switch (errorNumber) {
    case ENOENT: return OSTREL_FILE_ERROR_NOT_FOUND;
    case EACCES: return OSTREL_FILE_ERROR_ACCESS;
    case EEXIST: return OSTREL_FILE_ERROR_EXISTS;
    case EMFILE: return OSTREL_FILE_ERROR_TOO_MANY;
    default: return OSTREL_FILE_ERROR_OTHER;
    }
}

void reportFileError(int errorNumber, const char16_t *fileName) {
    Ostrel_ErrorHandler(module::resourceLibrary(), core::ids::kString.fileErrorCaption, fileErrorCode(errorNumber), fileName);
}

} // namespace tabra::diagnostics
