// The data sources of one test process: a private odbc.ini (ODBCINI) in the process's
// scratch directory with the SQLite data source and the test-driver data sources, all
// on one SQLite file that each test starts afresh.
//
// unixODBC caches what it reads from odbc.ini for about 20 seconds, keyed by data
// source and attribute name, not by file. So the file's content never changes for a
// name once written: the database path is fixed per process, and data sources a test
// adds get names of their own.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tabra::test {

// The data sources every test process has. All use the process's SQLite file.
namespace dsn {
inline constexpr char16_t SQLite[] = u"TabraTestSQLite";           // the SQLite3 driver itself
inline constexpr char16_t TestDriver[] = u"TabraTestDriver";       // test driver, no changes (DBMS name SQLite)
inline constexpr char16_t Access[] = u"TabraTestAccess";           // DBMSName=ACCESS
inline constexpr char16_t SqlServer[] = u"TabraTestSqlServer";     // DBMSName=Microsoft SQL Server
inline constexpr char16_t Oracle[] = u"TabraTestOracle";           // DBMSName=Oracle8
inline constexpr char16_t MySql[] = u"TabraTestMySql";             // DBMSName=MySQL, QuoteChar=`
inline constexpr char16_t Progress[] = u"TabraTestProgress";       // DBMSName=PROGRESS
inline constexpr char16_t Excel[] = u"TabraTestExcel";             // DBMSName=EXCEL
inline constexpr char16_t OtherDbms[] = u"TabraTestOtherDbms";     // DBMSName=TabraTestDBMS (no row of its own)
inline constexpr char16_t BlankQuote[] = u"TabraTestBlankQuote";   // QuoteChar=space
inline constexpr char16_t Schemas[] = u"TabraTestSchemas";         // SchemaUsage=0x1f
inline constexpr char16_t NoPrimaryKeys[] = u"TabraTestNoPrimaryKeys"; // PrimaryKeys=0
inline constexpr char16_t ConnectInfo[] = u"TabraTestConnectInfo"; // ConnectInfo=01S02
inline constexpr char16_t ExecInfo[] = u"TabraTestExecInfo";       // ExecInfo=01S02
} // namespace dsn

using Attributes = std::vector<std::pair<std::string, std::string>>;

class PrivateDataSources {
public:
    // The process's instance: creates the scratch directory and odbc.ini and points
    // ODBCINI (and ODBCSYSINI, unless set) at them on first use.
    static PrivateDataSources &instance();

    const std::filesystem::path &directory() const { return directory_; }
    const std::filesystem::path &sqliteDatabase() const { return database_; }

    // Deletes the SQLite file: the next connection starts an empty database.
    void freshSqliteDatabase();

    // Adds a test-driver data source on the process's SQLite file with the given
    // attributes (see tests/testdriver/data_source_settings.h) and returns its name.
    std::u16string addTestDriverDataSource(const Attributes &attributes);

    // Adds a data source of any registered driver ("SQLite3", "TabraTestDriver", ...).
    std::u16string addDataSource(const std::string &driver, const Attributes &attributes);

    PrivateDataSources(const PrivateDataSources &) = delete;
    PrivateDataSources &operator=(const PrivateDataSources &) = delete;
    ~PrivateDataSources();

private:
    PrivateDataSources();
    void appendSection(const std::string &name, const std::string &driver, const Attributes &attributes);

    std::filesystem::path directory_;
    std::filesystem::path database_;
    std::filesystem::path iniFile_;
    int added_ = 0;
    pid_t owner_;
};

} // namespace tabra::test
