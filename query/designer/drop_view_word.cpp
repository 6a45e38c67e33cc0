// The drop-view words of a connection.
#include "query/designer/drop_view_word.h"

#include "core/connection/capabilities.h"

namespace tabra::query::designer {

std::u16string dropViewWord(SQLHDBC connection) { return connection::capabilities(connection).dropViewWord; }

} // namespace tabra::query::designer
