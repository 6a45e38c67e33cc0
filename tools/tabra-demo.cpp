// tabra-demo: a host program of the Tabra library. It connects to a data source (the
// demo database by default) and prints what it finds: the library's version, the
// database product, and the tables and views with their row counts.
//
//   tabra-demo [--dsn NAME] [--user USER] [--password PASSWORD] [--script FILE]
//
// --script names a file of scripted dialog answers, for running the library's dialogs
// without a user; it is read and kept for that.
#include <tabra.h>

#include <langinfo.h>
#include <sql.h>
#include <sqlext.h>

#include <clocale>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace {

struct Options {
    std::string dataSource = "TabraDemo";
    std::string user;
    std::string password;
    std::optional<std::string> scriptFile;
};

void printUsage(std::FILE *out) {
    std::fprintf(out, "usage: tabra-demo [--dsn NAME] [--user USER] [--password PASSWORD] [--script FILE]\n");
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
        } else if (argument == "--script") {
            if (!(given = value("--script"))) return std::nullopt;
            options.scriptFile = *given;
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

std::u16string toUtf16(const std::string &text) {
    std::vector<char16_t> buffer(text.size() + 1);
    Ostrel_Utf8ToUtf16(text.c_str(), buffer.data(), static_cast<int32_t>(buffer.size()));
    return std::u16string(buffer.data());
}

std::string toUtf8(const std::u16string &text) {
    std::vector<char> buffer(text.size() * 3 + 1);
    Ostrel_Utf16ToUtf8(text.c_str(), buffer.data(), static_cast<int32_t>(buffer.size()));
    return std::string(buffer.data());
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

int main(int argc, char **argv) {
    std::optional<Options> options = parseOptions(argc, argv);
    if (!options) {
        printUsage(stderr);
        return 2;
    }
    useUtf8CharacterType();

    std::string script;
    if (options->scriptFile) {
        std::ifstream file(*options->scriptFile, std::ios::binary);
        if (!file) {
            std::fprintf(stderr, "tabra-demo: cannot read script %s\n", options->scriptFile->c_str());
            return 2;
        }
        script.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }

    char16_t version[32] = {};
    Tabra_GetVersion(version, 32);
    std::printf("Tabra %s demo host\n", toUtf8(version).c_str());
    if (options->scriptFile)
        std::printf("Dialog script: %s (%zu bytes)\n", options->scriptFile->c_str(), script.size());

    Connection connection;
    if (!connection.open(*options)) return 1;
    std::printf("Data source %s: %s %s\n", options->dataSource.c_str(),
                toUtf8(connection.infoText(SQL_DBMS_NAME)).c_str(), toUtf8(connection.infoText(SQL_DBMS_VER)).c_str());

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
    return 0;
}
