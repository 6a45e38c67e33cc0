// Pictures of a resource library, named as Win32 names numeric resources: "#10022"
// is picture 10022. A picture control (SS_BITMAP static) whose text is such a name
// shows that picture of its dialog's resource library.
#pragma once

#include "tabra_base.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::platform {

std::u16string pictureName(int32_t pictureId);

// The file of the picture the name stands for, or the empty text when the name is not
// "#<number>" or the library has no such picture.
std::string pictureFileNamed(HMODULE module, std::u16string_view name);

} // namespace tabra::platform
