// Reading the file a value names.
#include "wizards/import/value_files.h"

#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "ostrel_registry.h"
#include "tabra_connection.h"
#include "wizards/import/import_file.h"

#include <algorithm>

namespace tabra::wizards::importing {
namespace {

constexpr char16_t kKey[] = u"Lumo";
constexpr int32_t kAppendixCapacity = 100;

} // namespace

ValueFiles::ValueFiles(std::u16string folder) : folder_(std::move(folder)) {
    char16_t appendix[kAppendixCapacity] = {};
    Ostrel_ReadStringFromRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, kKey, u"ImportExpandFileAppendix", u"",
                                  appendix, kAppendixCapacity, kAppendixCapacity - 1);
    appendix_ = appendix;
}

std::optional<std::u16string> ValueFiles::read(const std::u16string &value, bool silent) const {
    const std::u16string name = inFolder(folder_, value) + appendix_;
    auto content = readWholeFile(name);
    if (!content && !silent) ShowMessage(core::ids::kMessage.fileNotOpened, name.c_str(), nullptr, nullptr);
    return content;
}

} // namespace tabra::wizards::importing
