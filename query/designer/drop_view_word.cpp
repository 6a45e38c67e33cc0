// The drop-view words of a connection.
#include "query/designer/drop_view_word.h"

namespace tabra::query::designer {

// The place where the per-database-type capability table (auto-increment column type,
// SELECT ... INTO, drop-view text) is to be asked once the connection's capabilities
// are read there; until then every type uses the default.
std::u16string dropViewWord(SQLHDBC) { return u"DROP VIEW"; }

} // namespace tabra::query::designer
