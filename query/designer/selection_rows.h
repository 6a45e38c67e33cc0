// The condition rows of the designer's selection page (template 10643): four
// conditions that must all hold, then three alternatives of one condition each.
#pragma once

#include "tabra_query.h"

namespace tabra::query::designer {

inline constexpr ConditionRow kSelectionRows[] = {
    {1211, 1212, 1213}, {1214, 1215, 1216}, {1217, 1218, 1219}, {1220, 1221, 1222}, {1, 1, 1},
    {1223, 1224, 1225}, {1, 1, 1},          {1226, 1227, 1228}, {1, 1, 1},
    {1229, 1230, 1231}, {1, 1, 1},          {0, 0, 0},
};

} // namespace tabra::query::designer
