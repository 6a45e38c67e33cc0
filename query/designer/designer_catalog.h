// The tables and columns the designer dialog offers, asked from the catalog once and
// kept while the dialog is open; a schema change forgets them.
#pragma once

#include "query/designer/design_editing.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tabra::query::designer {

class DesignerCatalog {
public:
    explicit DesignerCatalog(SQLHDBC connection) : connection_(connection) {}

    // The tables and views of the schema (of every schema when it is blank) by name,
    // prepared for SQL, qualified by the schema when one is given.
    const std::vector<std::u16string> &tables(const std::u16string &schema);
    // The columns of a table named as a table entry holds it.
    std::vector<CatalogColumn> columns(const std::u16string &table);
    ColumnsOf lookup() {
        return [this](const std::u16string &table) { return columns(table); };
    }
    void forget();

private:
    SQLHDBC connection_;
    std::optional<std::vector<std::u16string>> tables_;
    std::map<std::u16string, std::vector<CatalogColumn>> columns_;
};

} // namespace tabra::query::designer
