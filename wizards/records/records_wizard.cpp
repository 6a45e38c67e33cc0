// The state of the update and delete records wizards and the run both share.
#include "wizards/records/records_wizard.h"

#include "catalog/field_list.h"
#include "core/dialogs/wizard_frame.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "platform/text/bounded_text.h"
#include "tabra_catalog.h"
#include "wizards/records/records_statement.h"
#include "wizards/records/resource_ids.h"

#include <memory>
#include <new>

namespace tabra::wizards::records {

std::u16string RecordsWizard::table() const {
    return std::u16string(platform::viewOfBuffer(object.DbObjectName, kTableNameCapacity));
}

void RecordsWizard::setTable(std::u16string_view name) {
    platform::writeBounded(object.DbObjectName, kTableNameCapacity, name);
}

void RecordsWizard::loadColumns() {
    columns = catalog::fieldList(connection, table().c_str(), TABRA_FIELDS_WITH_TYPE, u"\t", kTextCapacity)
                  .value_or(std::u16string());
}

int32_t runRecordsWizard(Operation operation, SQLHDBC connection, DbObjectInfo *object, int32_t callerValue,
                         const int32_t *pageTable, WIZZARDPROC procedure) {
    std::unique_ptr<RecordsWizard> state;
    try {
        state = std::make_unique<RecordsWizard>();
        for (std::u16string *text : {&state->condition, &state->assignments, &state->columns})
            text->reserve(kTextCapacity);
    } catch (const std::bad_alloc &) {
        ShowMessage(core::ids::kMessage.outOfMemory, nullptr, nullptr, nullptr);
        return 2;
    }
    state->operation = operation;
    state->connection = connection;
    state->callerValue = callerValue;
    // Without a record the wizard starts on the tables, none chosen.
    if (object != nullptr) state->object = *object;
    else state->object.DbObjectType = TABRA_OBJECT_TABLE;

    bool deleting = operation == Operation::Delete;
    int32_t result = dialogs::performWizard(pageTable, procedure, *state,
                                            deleting ? ids::kPicture.deleteRecords : ids::kPicture.updateRecords,
                                            deleting ? ids::kString.deleteTitle : ids::kString.updateTitle);
    // The update ran when its confirmation page was left; the delete runs now.
    if (result == 1 && deleting && !runRecordsStatement(*state)) result = 2;
    if (result != 1) return 2;
    if (object != nullptr) *object = state->object;
    return 1;
}

} // namespace tabra::wizards::records
