// tabra-demo: a host program of the Tabra library. It opens the library's data source
// dialog on a data source (the demo database by default), connects through the
// library and prints what it finds: the connection's description, and the tables and
// views with their row counts. A command after the options runs one of the library's
// services on that connection instead of the listing (tabra-demo --help lists them;
// each lives in a demo_*.cpp file of its own).
//
//   tabra-demo [--dsn NAME] [--user USER] [--password PASSWORD] [--script FILE] [COMMAND [ARGUMENTS...]]
//
// --script names a file of scripted dialog answers (the script language of
// tabra_script.h), for running the library's dialogs without a user. Without a script
// the dialogs show on the display, or, when there is none, take their default answers.
#include "demo_host.h"

#include <tabra.h>

#include <langinfo.h>
#include <sql.h>
#include <sqlext.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>
#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

using demo::toUtf16;
using demo::toUtf8;

struct Options {
    std::string dataSource = "TabraDemo";
    std::string user;
    std::string password;
    std::optional<std::string> scriptFile;
    std::string command; // a registered command, or empty: the table listing
    std::vector<std::string> arguments;
};

void printUsage(std::FILE *out) {
    std::fprintf(out, "usage: tabra-demo [--dsn NAME] [--user USER] [--password PASSWORD] [--script FILE] "
                      "[COMMAND [ARGUMENTS...]]\n\ncommands:\n");
    for (const demo::DemoCommand *command : demo::commands())
        std::fprintf(out, "  %s %s\n      %s\n", command->name, command->arguments, command->purpose);
}

// Reads the command line; nothing when it is wrong (after saying why).
std::optional<Options> parseOptions(int argc, char **argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        auto value = [&](const char *name) -> std::optional<std::string> {
            if (i + 1 >= argc) {
                std::fprintf(stderr, "tabra-demo: %s needs a value\n", name);
                return std::nullopt;
            }
            return std::string(argv[++i]);
        };
        std::optional<std::string> given;
        if (argument == "--help" || argument == "-h") {
            printUsage(stdout);
            std::exit(0);
        } else if (argument == "--dsn") {
            if (!(given = value("--dsn"))) return std::nullopt;
            options.dataSource = *given;
        } else if (argument == "--user") {
            if (!(given = value("--user"))) return std::nullopt;
            options.user = *given;
        } else if (argument == "--password") {
            if (!(given = value("--password"))) return std::nullopt;
            options.password = *given;
        } else if (argument == "--tables") { // the listing's earlier name
            options.command = "tables";
        } else if (argument == "--script") {
            if (!(given = value("--script"))) return std::nullopt;
            options.scriptFile = *given;
        } else if (argument.rfind("--", 0) != 0 && demo::findCommand(argument)) {
            options.command = argument;
            options.arguments.assign(argv + i + 1, argv + argc);
            break;
        } else {
            std::fprintf(stderr, "tabra-demo: unknown argument %s\n", argument.c_str());
            return std::nullopt;
        }
    }
    return options;
}

// The driver manager converts the text of ANSI drivers (SQLite3) through the
// character type of the process: it must be UTF-8, or non-ASCII names are lost.
void useUtf8CharacterType() {
    std::setlocale(LC_ALL, "");
    const char *codeset = nl_langinfo(CODESET);
    if (codeset && (std::strcmp(codeset, "UTF-8") == 0 || std::strcmp(codeset, "utf8") == 0)) return;
    if (!std::setlocale(LC_CTYPE, "C.UTF-8"))
        std::fprintf(stderr, "tabra-demo: no UTF-8 locale; non-ASCII text will be lost\n");
}

SQLWCHAR *sqlText(std::u16string &text) { return reinterpret_cast<SQLWCHAR *>(text.data()); }

bool succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

void printDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle) {
    for (SQLSMALLINT record = 1;; ++record) {
        char16_t state[6] = {};
        char16_t message[1024] = {};
        SQLINTEGER nativeError = 0;
        SQLSMALLINT length = 0;
        if (!succeeded(SQLGetDiagRecW(handleType, handle, record, reinterpret_cast<SQLWCHAR *>(state), &nativeError,
                                      reinterpret_cast<SQLWCHAR *>(message), 1024, &length)))
            break;
        std::fprintf(stderr, "  [%s] %s\n", toUtf8(state).c_str(), toUtf8(message).c_str());
    }
}

// An environment and connection, released on every way out.
class Connection {
public:
    ~Connection() {
        if (connected_) SQLDisconnect(connection_);
        if (connection_) SQLFreeConnect(connection_);
        if (environment_) SQLFreeEnv(environment_);
    }

    bool open(const Options &options) {
        if (!succeeded(SQLAllocEnv(&environment_)) || !succeeded(SQLAllocConnect(environment_, &connection_))) {
            std::fprintf(stderr, "tabra-demo: cannot allocate ODBC handles\n");
            return false;
        }
        std::u16string name = toUtf16(options.dataSource), user = toUtf16(options.user),
                       password = toUtf16(options.password);
        SQLRETURN rc = SQLConnectW(connection_, sqlText(name), SQL_NTS, user.empty() ? nullptr : sqlText(user), SQL_NTS,
                                   password.empty() ? nullptr : sqlText(password), SQL_NTS);
        if (!succeeded(rc)) {
            std::fprintf(stderr, "tabra-demo: cannot connect to data source %s\n", options.dataSource.c_str());
            printDiagnostics(SQL_HANDLE_DBC, connection_);
            return false;
        }
        connected_ = true;
        return true;
    }

    SQLHDBC handle() const { return connection_; }

    // A text item of SQLGetInfoW. The length given is half the buffer: with an ANSI
    // driver the driver manager takes a byte count for a character count.
    std::u16string infoText(SQLUSMALLINT item) const {
        char16_t value[512] = {};
        SQLSMALLINT length = 0;
        if (!succeeded(SQLGetInfoW(connection_, item, value, sizeof value / 2, &length))) return {};
        return value;
    }

private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
    bool connected_ = false;
};

// A statement handle, dropped on every way out.
class Statement {
public:
    explicit Statement(const Connection &connection) { SQLAllocStmt(connection.handle(), &statement_); }
    ~Statement() {
        if (statement_) SQLFreeStmt(statement_, SQL_DROP);
    }
    SQLHSTMT handle() const { return statement_; }

private:
    SQLHSTMT statement_ = SQL_NULL_HSTMT;
};

struct Table {
    std::u16string name;
    std::u16string type;
};

std::u16string textColumn(SQLHSTMT statement, SQLUSMALLINT column) {
    char16_t value[512] = {};
    SQLLEN indicator = 0;
    if (!succeeded(SQLGetData(statement, column, SQL_C_WCHAR, value, sizeof value, &indicator)) ||
        indicator == SQL_NULL_DATA)
        return {};
    return value;
}

std::vector<Table> listTables(const Connection &connection) {
    std::vector<Table> tables;
    Statement statement(connection);
    std::u16string types = u"'TABLE','VIEW'";
    if (!succeeded(SQLTablesW(statement.handle(), nullptr, 0, nullptr, 0, nullptr, 0, sqlText(types), SQL_NTS))) {
        printDiagnostics(SQL_HANDLE_STMT, statement.handle());
        return tables;
    }
    while (succeeded(SQLFetch(statement.handle())))
        tables.push_back({textColumn(statement.handle(), 3), textColumn(statement.handle(), 4)});
    return tables;
}

// The number of rows, or nothing when the count fails.
std::optional<long long> countRows(const Connection &connection, const std::u16string &table,
                                   const std::u16string &quote) {
    Statement statement(connection);
    std::u16string closing = quote == u"[" ? u"]" : quote;
    std::u16string sql = u"SELECT COUNT(*) FROM " + quote + table + closing;
    if (!succeeded(SQLExecDirectW(statement.handle(), sqlText(sql), SQL_NTS)) ||
        !succeeded(SQLFetch(statement.handle())))
        return std::nullopt;
    return std::stoll(toUtf8(textColumn(statement.handle(), 1)));
}

std::string withThousands(long long value) {
    std::string digits = std::to_string(value), result;
    for (size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) result += ',';
        result += digits[i];
    }
    return result;
}

} // namespace

const char *databaseTypeName(int32_t type) {
    static const char *const names[] = {"other", "Progress", "MySQL", "Access", "SQL Server", "Excel", "Oracle"};
    return type >= 0 && type <= 6 ? names[type] : "?";
}

// Dialogs are answered by a script when one is given, or by their default buttons when
// there is no display to show them on; otherwise the user answers them on screen.
bool prepareDialogs(const Options &options) {
    const char *display = std::getenv("DISPLAY");
    if (options.scriptFile) {
        TabraScript_Begin();
        if (TabraScript_LoadFile(options.scriptFile->c_str()) < 0) {
            char error[512];
            TabraScript_LastError(error, sizeof error);
            std::fprintf(stderr, "tabra-demo: %s\n", error);
            return false;
        }
        std::printf("Dialogs are answered by the script %s\n", options.scriptFile->c_str());
    } else if (!display || !*display) {
        TabraScript_Begin();
        TabraScript_QueueUtf8("dialog 103: click 1");
        std::printf("No display: the data source dialog is answered with its default (OK)\n");
    }
    return true;
}

// After a scripted run: the report when the script did not go as written.
bool scriptWentWell() {
    if (!TabraScript_Failed()) return true;
    std::string report(static_cast<size_t>(TabraScript_ReportUtf8(nullptr, 0)) + 1, '\0');
    TabraScript_ReportUtf8(report.data(), static_cast<int32_t>(report.size()));
    std::fprintf(stderr, "tabra-demo: the dialog script failed:\n%s\n", report.c_str());
    return false;
}

void copyField(const std::string &text, char16_t *field, size_t width) {
    std::u16string wide = toUtf16(text);
    size_t n = std::min(wide.size(), width - 1);
    wide.copy(field, n);
    field[n] = u'\0';
}

// The connection's own description, as the library reports it.
void printConnectionInfo(SQLHDBC connection) {
    char16_t text[200] = {};
    Tabra_GetDataSourceName(connection, text, 200);
    std::printf("Data source:     %s\n", toUtf8(text).c_str());
    Tabra_GetDatabaseName(connection, text, 200);
    std::printf("Database:        %s\n", toUtf8(text).c_str());
    std::printf("Database type:   %s\n", databaseTypeName(Tabra_GetDatabaseType(connection)));
    Tabra_GetDriverVersion(connection, text, 200);
    std::printf("Driver version:  %s\n", toUtf8(text).c_str());
    char16_t quote[2] = {Tabra_GetDelimiter(connection), u'\0'};
    std::printf("Quote character: '%s'\n", toUtf8(quote).c_str());
    std::printf("Schema usage:    0x%x\n", static_cast<unsigned>(Tabra_GetSchemaUsage(connection)));
}

int main(int argc, char **argv) {
    std::optional<Options> options = parseOptions(argc, argv);
    if (!options) {
        printUsage(stderr);
        return 2;
    }
    useUtf8CharacterType();

    char16_t version[32] = {};
    Tabra_GetVersion(version, 32);
    std::printf("Tabra %s demo host\n", toUtf8(version).c_str());
    if (!prepareDialogs(*options)) return 2;

    // The user confirms (or changes) the data source and login in the data source dialog.
    DataSourceInfo record{};
    copyField(options->dataSource, record.DataSourceName, 100);
    copyField(options->user, record.UserId, 50);
    copyField(options->password, record.Password, 50);
    if (Tabra_DataSourceDialog(&record) != 1) {
        std::fprintf(stderr, "tabra-demo: no data source was chosen\n");
        scriptWentWell();
        return 1;
    }
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC libraryConnection = SQL_NULL_HDBC;
    if (Tabra_ConnectDataSource(&record, &environment, &libraryConnection) != 0) {
        scriptWentWell();
        return 1;
    }
    printConnectionInfo(libraryConnection);
    demo::chosenDataSource() = record;
    if (!options->command.empty()) {
        int status = demo::findCommand(options->command)->run(libraryConnection, options->arguments);
        Tabra_DisconnectDataSource(&environment, &libraryConnection);
        return scriptWentWell() ? status : 1;
    }
    Tabra_DisconnectDataSource(&environment, &libraryConnection);

    options->dataSource = toUtf8(record.DataSourceName);
    options->user = toUtf8(record.UserId);
    options->password = toUtf8(record.Password);
    Connection connection;
    if (!connection.open(*options)) return 1;
    std::u16string quote = connection.infoText(SQL_IDENTIFIER_QUOTE_CHAR);
    if (quote == u" ") quote.clear();
    std::vector<Table> tables = listTables(connection);
    std::printf("%zu tables and views:\n", tables.size());
    for (const Table &table : tables) {
        std::optional<long long> rows = countRows(connection, table.name, quote);
        std::string name = toUtf8(table.name);
        std::printf("  %-24s %-6s %12s rows\n", name.c_str(), toUtf8(table.type).c_str(),
                    rows ? withThousands(*rows).c_str() : "?");
    }
    return scriptWentWell() ? 0 : 1;
}
