// Reporting a failed file operation to the user: the runtime's error number becomes
// a file error code of the in-house error handler, shown with the file name under the
// library's file error caption.
#pragma once

#include <cstdint>

namespace tabra::diagnostics {

// The file error code for an errno: ENOENT 3, EACCES 2, EEXIST 4, EMFILE 5, else 6.
int32_t fileErrorCode(int errorNumber);

// Shows the error for fileName (the name the user gave).
void reportFileError(int errorNumber, const char16_t *fileName);

} // namespace tabra::diagnostics
