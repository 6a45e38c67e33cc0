// The four checks of the fields before the import.
#include "wizards/import/mapping_checks.h"

#include "platform/text/case_folding.h"
#include "tabra_catalog.h"
#include "wizards/import/resource_ids.h"
#include "wizards/resource_ids.h"

namespace tabra::wizards::importing {
namespace {

constexpr char16_t kForbiddenCharacters[] = u".'\"[]()";

} // namespace

bool conversionAllowed(int32_t sourceType, int32_t type) {
    if (sourceType == type || sourceType < 1 || sourceType > 10) return true;
    switch (sourceType) {
    case TdtInteger:
    case TdtNumber:
        return type == TdtText || type == TdtInteger || type == TdtNumber || type == TdtMemo || type == TdtVarText;
    case TdtDateTime: return type == TdtText || type == TdtDateTime || type == TdtVarText;
    default: return true;
    }
}

std::optional<CheckFailure> checkFields(const ImportFieldList &fields) {
    const auto &shown = fields.displayed();
    const std::size_t checked = shown.empty() ? 0 : shown.size() - 1;
    for (std::size_t i = 0; i < checked; ++i) {
        if (!shown[i]->imported) continue;
        for (std::size_t j = i + 1; j < shown.size(); ++j)
            if (shown[j]->imported && platform::equalIgnoringCase(shown[i]->name, shown[j]->name))
                return CheckFailure{ids::kMessage.sameColumnTwice, shown[i]->name};
    }
    int autoIncrements = 0;
    for (std::size_t i = 0; i < checked; ++i)
        if (shown[i]->imported && shown[i]->autoIncrement && ++autoIncrements > 1)
            return CheckFailure{ids::kMessage.autoIncrementTwice, {}};
    for (std::size_t i = 0; i < checked; ++i)
        if (shown[i]->imported && !conversionAllowed(shown[i]->sourceType, shown[i]->type))
            return CheckFailure{wizards::ids::kMessage.conversionNotAllowed, shown[i]->sourceName};
    for (std::size_t i = 0; i < checked; ++i)
        if (shown[i]->imported && shown[i]->name.find_first_of(kForbiddenCharacters) != std::u16string::npos)
            return CheckFailure{ids::kMessage.forbiddenCharacter, shown[i]->name};
    return std::nullopt;
}

} // namespace tabra::wizards::importing
