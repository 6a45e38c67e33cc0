#include "support/private_data_sources.h"

#include "support/test_configuration.h"
#include "support/test_text.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tabra::test {
namespace {

struct StandardDataSource {
    const char16_t *name;
    const char *driver;
    Attributes attributes;
};

const std::vector<StandardDataSource> &standardDataSources() {
    static const std::vector<StandardDataSource> sources = {
        {dsn::SQLite, "SQLite3", {}},
        {dsn::TestDriver, "TabraTestDriver", {}},
        {dsn::Access, "TabraTestDriver", {{"DBMSName", "ACCESS"}}},
        {dsn::SqlServer, "TabraTestDriver", {{"DBMSName", "Microsoft SQL Server"}}},
        {dsn::Oracle, "TabraTestDriver", {{"DBMSName", "Oracle8"}}},
        {dsn::MySql, "TabraTestDriver", {{"DBMSName", "MySQL"}, {"QuoteChar", "`"}}},
        {dsn::Progress, "TabraTestDriver", {{"DBMSName", "PROGRESS"}}},
        {dsn::Excel, "TabraTestDriver", {{"DBMSName", "EXCEL"}}},
        {dsn::OtherDbms, "TabraTestDriver", {{"DBMSName", "TabraTestDBMS"}}},
        {dsn::BlankQuote, "TabraTestDriver", {{"QuoteChar", "space"}}},
        {dsn::Schemas, "TabraTestDriver", {{"SchemaUsage", "0x1f"}}},
        {dsn::NoPrimaryKeys, "TabraTestDriver", {{"PrimaryKeys", "0"}}},
        {dsn::ConnectInfo, "TabraTestDriver", {{"ConnectInfo", "01S02"}}},
        {dsn::ExecInfo, "TabraTestDriver", {{"ExecInfo", "01S02"}}},
    };
    return sources;
}

void removeIfPresent(const std::filesystem::path &file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

} // namespace

PrivateDataSources &PrivateDataSources::instance() {
    static PrivateDataSources sources;
    return sources;
}

PrivateDataSources::PrivateDataSources() : owner_(getpid()) {
    directory_ = scratchRoot() / ("process-" + std::to_string(getpid()));
    std::filesystem::remove_all(directory_);
    std::filesystem::create_directories(directory_);
    database_ = directory_ / "database.sqlite";
    iniFile_ = directory_ / "odbc.ini";
    std::ofstream(iniFile_, std::ios::trunc) << "; Data sources of one test process\n";
    for (const auto &source : standardDataSources()) appendSection(toUtf8(source.name), source.driver, source.attributes);
    setenv("ODBCINI", iniFile_.c_str(), 1);
    setenv("ODBCSYSINI", odbcSystemDirectory().c_str(), 0);
}

PrivateDataSources::~PrivateDataSources() {
    if (getpid() != owner_) return; // a forked child leaving: the files are its parent's
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

void PrivateDataSources::freshSqliteDatabase() {
    for (const char *suffix : {"", "-journal", "-wal", "-shm"}) removeIfPresent(database_.string() + suffix);
}

std::u16string PrivateDataSources::addTestDriverDataSource(const Attributes &attributes) {
    return addDataSource("TabraTestDriver", attributes);
}

std::u16string PrivateDataSources::addDataSource(const std::string &driver, const Attributes &attributes) {
    std::string name = "TabraTestAdded" + std::to_string(++added_);
    appendSection(name, driver, attributes);
    return toUtf16(name);
}

void PrivateDataSources::appendSection(const std::string &name, const std::string &driver,
                                       const Attributes &attributes) {
    std::ofstream ini(iniFile_, std::ios::app);
    ini << "\n[" << name << "]\nDriver=" << driver << "\n";
    bool hasDatabase = false;
    for (const auto &[key, value] : attributes) {
        ini << key << "=" << value << "\n";
        hasDatabase = hasDatabase || key == "Database";
    }
    if (!hasDatabase) ini << "Database=" << database_.string() << "\n";
    if (!ini) throw std::runtime_error("cannot write " + iniFile_.string());
}

} // namespace tabra::test
