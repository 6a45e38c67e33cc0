// The exported module queries.
#include "core/module/module_state.h"
#include "ostrel_lts.h"
#include "ostrel_text.h"
#include "tabra_connection.h"

extern "C" HMODULE Tabra_GetInstance(void) { return tabra::module::instance(); }

extern "C" int32_t Tabra_GetLtsModuleName(char16_t *destination, int32_t size) {
    return OstrelCopyString(destination, tabra::module::kTranslationModuleName, size);
}

extern "C" int32_t Tabra_GetVersion(char16_t *destination, int32_t size) {
    return Ostrel_GetResourceFileVersion(tabra::module::instance(), 1, destination, size, 0);
}
