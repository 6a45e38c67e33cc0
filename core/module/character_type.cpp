// Switching a C or POSIX character type to UTF-8 when the library loads.
#include "core/module/character_type.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace tabra::module {

bool coerceCharacterType() {
    const char *optOut = std::getenv("TABRA_COERCE_C_LOCALE");
    if (optOut != nullptr && std::strcmp(optOut, "0") == 0) return false;
    const char *current = std::setlocale(LC_CTYPE, nullptr);
    if (current == nullptr || (std::strcmp(current, "C") != 0 && std::strcmp(current, "POSIX") != 0)) return false;
    for (const char *utf8 : {"C.UTF-8", "C.utf8"})
        if (std::setlocale(LC_CTYPE, utf8) != nullptr) return true;
    return false;
}

} // namespace tabra::module
