// Resource identifiers of the update and delete records wizards: their pages with
// their controls, titles, strings and message. Their texts are in
// resources/<language>/tabraRes-records.rc; messages shared with the other wizards
// are in wizards/resource_ids.h. The pattern is described in core/resource_ids.h.
#pragma once

#include "tabra_query.h"

#include <cstdint>

namespace tabra::wizards::records::ids {

// The frames' pictures (a namespace of their own in the resource library).
inline constexpr struct Pictures {
    int32_t deleteRecords = 10020;
    int32_t updateRecords = 10021;
} kPicture{};

// The table pages: the tables of the record's object type.
inline constexpr struct DeleteTablePage {
    int32_t id = 10043;
    int32_t tables = 1005;
} kDeleteTablePage{};

inline constexpr struct UpdateTablePage {
    int32_t id = 10046;
    int32_t tables = 1005;
} kUpdateTablePage{};

// The condition pages: one group of conditions in kConditionRows.
inline constexpr struct DeleteConditionPage {
    int32_t id = 10041;
} kDeleteConditionPage{};

inline constexpr struct UpdateConditionPage {
    int32_t id = 10045;
} kUpdateConditionPage{};

// The assignment page (update): the assignments in kAssignmentRows.
inline constexpr struct AssignmentPage {
    int32_t id = 10048;
} kAssignmentPage{};

// The delete wizard's last page: how many records Finish deletes.
inline constexpr struct SummaryPage {
    int32_t id = 10044;
    int32_t summary = 2128;
} kSummaryPage{};

// The update wizard's confirmation (leaving it runs the update) and result pages.
inline constexpr struct ConfirmationPage {
    int32_t id = 10049;
    int32_t confirmation = 2132;
} kConfirmationPage{};

inline constexpr struct ResultPage {
    int32_t id = 10047;
    int32_t result = 2131;
} kResultPage{};

// The rows of the condition pages (five conditions that all hold) and of the
// assignment page (three assignments).
inline constexpr ConditionRow kConditionRows[] = {
    {1011, 1012, 1013}, {1015, 1016, 1017}, {1018, 1019, 1020}, {1021, 1022, 1023}, {1024, 1025, 1026}, {0, 0, 0}};
inline constexpr ConditionRow kAssignmentRows[] = {{1011, 1012, 1013}, {1015, 1016, 1017}, {1018, 1019, 1020}, {0, 0, 0}};

// Strings; each count text holds one "%d" for the number of records.
inline constexpr struct Strings {
    int32_t recordsToDelete = 2163;  // the summary when the condition selects records
    int32_t noRecordToDelete = 2164; // the summary when it selects none (shown with 0)
    int32_t recordsUpdated = 2165;   // the result page
    int32_t recordsToUpdate = 2166;  // the confirmation page
    int32_t deleteTitle = 2909;      // the frames' titles
    int32_t updateTitle = 2910;
} kString{};

inline constexpr struct Messages {
    int32_t noAssignment = 1635; // the assignment rows give no SET list
} kMessage{};

} // namespace tabra::wizards::records::ids
