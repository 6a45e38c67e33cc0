// Whether a plain identifier may stay bare in SQL on a connection: only where the
// database reads it back unchanged. It must be quoted when the database folds unquoted
// names to one case (SQL_IDENTIFIER_CASE upper or lower, as PostgreSQL folds to lower)
// and the name has letters of the other case, and when it is a reserved word (ODBC's
// reserved keywords and the driver's own, SQL_KEYWORDS). Where nothing folds and nothing
// is reserved every plain identifier stays bare.
#pragma once

#include <sql.h>

#include <optional>
#include <string>
#include <string_view>

namespace tabra::sqltext {

// The rules of one call: the driver is asked for its identifier case and its keywords
// when a name first needs them and not again during the call (nothing outlives it).
class BareNameRules {
public:
    explicit BareNameRules(SQLHDBC connection) : connection_(connection) {}

    // For a plain identifier: true when it may stay bare.
    bool staysBare(std::u16string_view plainName);

private:
    SQLHDBC connection_;
    std::optional<SQLUSMALLINT> identifierCase_;
    std::optional<std::u16string> keywords_;
};

} // namespace tabra::sqltext
