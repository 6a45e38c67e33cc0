// The assignment page of the update records wizard.
#include "wizards/records/assignment_page.h"

#include "query/condition_rows.h"
#include "query/condition_text.h"
#include "query/operator_tables.h"
#include "wizards/records/resource_ids.h"

namespace tabra::wizards::records {

namespace {

// The SET list is tried in the room the page has always given it.
constexpr std::size_t kSetListCapacity = 300;

void showAssignments(HWND page, RecordsWizard &state) {
    query::showDescriptorInRows(query::kAssignmentKind, state.assignments.c_str(), state.columns.c_str(), page,
                                ids::kAssignmentRows);
}

dialogs::PageAnswer leaveAssignments(HWND page, RecordsWizard &state, dialogs::Leaving direction) {
    state.assignments = query::descriptorFromRows(query::kAssignmentKind, page, ids::kAssignmentRows, kTextCapacity);
    if (direction == dialogs::Leaving::Back) return dialogs::PageAnswer::GoOn;
    if (!query::setText(state.connection, state.assignments, kSetListCapacity).empty())
        return dialogs::PageAnswer::GoOn;
    ShowMessage(ids::kMessage.noAssignment, nullptr, nullptr, nullptr);
    return dialogs::PageAnswer::Stay;
}

} // namespace

constinit const dialogs::Dialog<RecordsWizard> kAssignmentPage{.entered = showAssignments, .left = leaveAssignments};

} // namespace tabra::wizards::records
