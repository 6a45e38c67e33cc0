// Testing a design's statement on the database (command 3 of the designer dialog).
#pragma once

#include "query/designer/query_design.h"

#include <cstdint>

namespace tabra::query::designer {

// Builds the statement (kStatementCapacity) and tries it. A design that builds a view
// creates the view kViewTestName in its schema with the statement as its query and
// drops it again (a failed drop is not shown); any other design runs the statement.
// Failures are shown with the statement. Returns 1 when the statement (or the test
// view) ran, else 2; after 2 no test view is left behind.
int32_t testStatement(const QueryDesign &design);

} // namespace tabra::query::designer
