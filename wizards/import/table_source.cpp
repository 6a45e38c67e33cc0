// A source table: its columns as fields, and its rows through one SELECT.
#include "wizards/import/table_source.h"

#include "catalog/column_facts.h"
#include "catalog/record_counts.h"
#include "catalog/table_columns.h"
#include "core/connection/connection_info.h"
#include "core/odbc/statement_runner.h"
#include "platform/text/bounded_text.h"
#include "rowset/row_set_reader.h"
#include "tabra_catalog.h"
#include "tabra_connection.h"
#include "wizards/import/import_statements.h"
#include "wizards/resource_ids.h"

#include <vector>

namespace tabra::wizards::importing {
namespace {

constexpr int32_t kValueCapacity = 30000;

class TableRows : public RowSource {
public:
    TableRows(SQLHDBC source, std::u16string table, const ImportFieldList &fields)
        : source_(source), table_(std::move(table)), fieldCount_(fields.count()) {
        select_ = sourceSelect(source, table_, fields);
        for (const ImportField *field : fields.displayed()) {
            if (!field->inserted()) continue;
            for (std::size_t i = 0; i < fields.count(); ++i)
                if (fields.inSourceOrder(i) == field) positions_.push_back(i);
        }
    }

    bool start() override {
        rows_ = catalog::recordCount(source_, table_.c_str(), nullptr);
        statement_.emplace(source_, select_.c_str());
        if (statement_->run() != odbc::RunResult::Done) return false;
        reader_.emplace(statement_->handle(), kValueCapacity, static_cast<SQLSMALLINT>(positions_.size()),
                        tabra::connection::fetchesTextAsUtf8(source_) ? rowset::TextTransfer::Utf8
                                                               : rowset::TextTransfer::Wide);
        reader_->useBlocks();
        return true;
    }
    int32_t rowCount() const override { return rows_; }
    bool next(SourceValues &values) override {
        SQLRETURN rc = reader_->nextRow();
        if (rc == SQL_NO_DATA) return false;
        if (statement_->check(rc) != odbc::RunResult::Done) return false;
        values.assign(fieldCount_, std::nullopt);
        for (std::size_t column = 0; column < positions_.size(); ++column) {
            rowset::FetchedValue value;
            rc = reader_->read(static_cast<SQLUSMALLINT>(column + 1), value);
            if (statement_->check(rc) != odbc::RunResult::Done) return false;
            if (!value.isNull()) values[positions_[column]] = std::u16string(value.text, value.length);
        }
        return true;
    }
    ConversionRules rules() const override { return {u'.', true, nullptr}; }

private:
    SQLHDBC source_;
    std::u16string table_, select_;
    std::size_t fieldCount_;
    std::vector<std::size_t> positions_; // source position of each selected column
    std::optional<odbc::StatementRunner> statement_;
    std::optional<rowset::RowSetReader> reader_;
    int32_t rows_ = 0;
};

} // namespace

bool readTableFields(SQLHDBC source, const std::u16string &table, ImportFieldList &fields) {
    fields.clear();
    auto columns = catalog::tableColumns(source, table.c_str());
    if (!columns) return false;
    for (const catalog::CatalogColumn &column : *columns)
        fields.add(describedField(column.name, Tabra_SqlDataTypeToTabraDataType(column.sqlType),
                                  column.size));
    if (fields.count() == 0) {
        ShowMessage(wizards::ids::kMessage.tableWithoutColumns, table.c_str(), nullptr, nullptr);
        return false;
    }
    for (std::size_t i = 0; i < fields.count(); ++i) {
        ImportField *field = fields.inSourceOrder(i);
        field->autoIncrement = catalog::isAutoIncrementColumn(source, table.c_str(), field->sourceName.c_str());
    }
    return true;
}

std::unique_ptr<RowSource> openTableRows(SQLHDBC source, const std::u16string &table, const ImportFieldList &fields) {
    return std::make_unique<TableRows>(source, table, fields);
}

} // namespace tabra::wizards::importing
