// A table's definition as SQLite keeps it: the CREATE TABLE statement of the schema
// table (sqlite_master.sql), taken apart into its column definitions and table
// constraints so that a key can be added or removed while every other word of it
// (types, defaults, NOT NULL, CHECK, UNIQUE, FOREIGN KEY, COLLATE, comments, the
// table options after the parenthesis) stays exactly as the user wrote it.
//
//     auto definition = TableDefinition::parse(u"CREATE TABLE t (a INTEGER PRIMARY KEY, b TEXT NOT NULL)");
//     definition->dropPrimaryKey();
//     definition->createStatement(u"\"t_new\"");  // CREATE TABLE "t_new" (a INTEGER, b TEXT NOT NULL)
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabra::admin::table_admin {

class TableDefinition {
public:
    // The parts of "CREATE [TEMP] TABLE [IF NOT EXISTS] name (element, ...) options";
    // nullopt for any other text (a virtual table, a view, no parenthesis).
    static std::optional<TableDefinition> parse(std::u16string_view createStatement);

    // Whether a column or a table constraint declares the primary key.
    bool hasPrimaryKey() const;
    // Removes the primary key: a table constraint "[CONSTRAINT name] PRIMARY KEY (...)"
    // as a whole, or from a column its "[CONSTRAINT name] PRIMARY KEY [ASC|DESC] [ON
    // CONFLICT x] [AUTOINCREMENT]" (the column keeps everything else). False when the
    // table has no primary key.
    bool dropPrimaryKey();
    // Adds a column definition ("Id INTEGER PRIMARY KEY AUTOINCREMENT") after the last
    // column, before the table constraints.
    void addColumn(std::u16string definition);
    // Adds a table constraint ("PRIMARY KEY (a, b)") after the others.
    void addTableConstraint(std::u16string constraint);

    // "WITHOUT ROWID" among the table options: the table has no rowid to carry over.
    bool withoutRowid() const;
    // The CREATE TABLE statement of this definition for a table of the given name
    // (already prepared for SQL).
    std::u16string createStatement(std::u16string_view preparedName) const;

private:
    struct Element {
        std::u16string text;     // as written, without the separating commas
        bool constraint = false; // a table constraint, else a column definition
    };

    std::vector<Element> elements_;
    std::u16string options_; // after the closing parenthesis
};

} // namespace tabra::admin::table_admin
