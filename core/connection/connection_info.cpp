// Questions asked of an open connection, and the exported queries over them.
#include "core/connection/connection_info.h"

#include "core/odbc/odbc_text.h"

#include <string_view>

namespace tabra::connection {
namespace {

// The lengths handed over as byte counts; the answers are read into buffers with room
// for as many characters, as some drivers count the length in characters.
constexpr SQLSMALLINT kQuoteBytes = 10;
constexpr SQLSMALLINT kDbmsNameBytes = 100;
constexpr size_t kKeywordsCapacity = 2048; // characters; MariaDB's list has 1120

char16_t asciiUpper(char16_t c) { return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c; }

bool equalsIgnoringCase(std::u16string_view text, std::u16string_view upper) {
    if (text.size() != upper.size()) return false;
    for (size_t i = 0; i < text.size(); ++i)
        if (asciiUpper(text[i]) != upper[i]) return false;
    return true;
}

} // namespace

IdentifierQuote identifierQuote(SQLHDBC connection) {
    IdentifierQuote quote;
    if (connection == SQL_NULL_HDBC) return quote;
    char16_t reply[kQuoteBytes + 1] = {};
    SQLRETURN rc = SQLGetInfoW(connection, SQL_IDENTIFIER_QUOTE_CHAR, reply, kQuoteBytes, &quote.length);
    quote.answered = SQL_SUCCEEDED(rc);
    reply[4] = u'\0'; // a quote string has at most 4 characters
    quote.text = reply;
    return quote;
}

uint32_t schemaUsage(SQLHDBC connection, odbc::Acceptance acceptance) {
    if (connection == SQL_NULL_HDBC) return 0;
    SQLUINTEGER mask = 0;
    SQLSMALLINT length = 0;
    SQLRETURN rc = SQLGetInfoW(connection, SQL_SCHEMA_USAGE, &mask, sizeof mask, &length);
    bool accepted = rc == SQL_SUCCESS || (rc == SQL_SUCCESS_WITH_INFO && acceptance != odbc::Acceptance::Strict);
    return accepted ? mask : 0;
}

std::u16string dbmsName(SQLHDBC connection) {
    if (connection == SQL_NULL_HDBC) return {};
    char16_t name[kDbmsNameBytes + 1] = {};
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection, SQL_DBMS_NAME, name, kDbmsNameBytes, &length))) return {};
    name[49] = u'\0'; // the name is read as its first 49 characters
    return name;
}

DatabaseType databaseType(SQLHDBC connection) { return databaseTypeOfName(dbmsName(connection)); }

DatabaseType databaseTypeOfName(std::u16string_view dbms) {
    if (equalsIgnoringCase(dbms, u"MICROSOFT SQL SERVER")) return DbSqlServer;
    if (equalsIgnoringCase(dbms, u"ACCESS")) return DbAccess;
    if (dbms.size() >= 6 && equalsIgnoringCase(dbms.substr(0, 6), u"ORACLE")) return DbOracle;
    if (equalsIgnoringCase(dbms, u"MYSQL")) return DbMySql;
    if (equalsIgnoringCase(dbms, u"PROGRESS")) return DbProgress;
    if (equalsIgnoringCase(dbms, u"EXCEL")) return DbExcel;
    return DbOther;
}

SQLUSMALLINT identifierCase(SQLHDBC connection) {
    if (connection == SQL_NULL_HDBC) return 0;
    SQLUSMALLINT answer = 0;
    SQLSMALLINT length = 0;
    return SQL_SUCCEEDED(SQLGetInfoW(connection, SQL_IDENTIFIER_CASE, &answer, sizeof answer, &length)) ? answer : 0;
}

std::u16string keywords(SQLHDBC connection) {
    if (connection == SQL_NULL_HDBC) return {};
    // The first call tells the length; a list longer than the first buffer is asked again.
    std::u16string list(kKeywordsCapacity, u'\0');
    SQLSMALLINT bytes = 0;
    for (int attempt = 0; attempt < 2; ++attempt) {
        SQLRETURN rc = SQLGetInfoW(connection, SQL_KEYWORDS, list.data(), static_cast<SQLSMALLINT>(list.size() * 2), &bytes);
        if (!SQL_SUCCEEDED(rc) || bytes < 0) return {};
        if (static_cast<size_t>(bytes) / 2 < list.size()) break;
        if (static_cast<size_t>(bytes) / 2 + 1 > 0x3FFF) return {};
        list.assign(static_cast<size_t>(bytes) / 2 + 1, u'\0');
    }
    list.resize(std::char_traits<char16_t>::length(list.c_str()));
    return list;
}

bool fetchesTextAsUtf8(SQLHDBC connection) {
    if (equalsIgnoringCase(dbmsName(connection), u"POSTGRESQL")) {
        char16_t driver[kDbmsNameBytes] = {};
        readTextInfo(connection, SQL_DRIVER_NAME, driver, kDbmsNameBytes);
        const std::u16string_view name(driver);
        return name.size() >= 9 && equalsIgnoringCase(name.substr(0, 9), u"PSQLODBCW");
    }
    if (!equalsIgnoringCase(dbmsName(connection), u"MARIADB")) return false;
    char16_t collation[kDbmsNameBytes] = {};
    readTextInfo(connection, SQL_COLLATION_SEQ, collation, kDbmsNameBytes);
    const std::u16string_view name(collation);
    return name.size() >= 4 && equalsIgnoringCase(name.substr(0, 4), u"UTF8");
}

SQLRETURN readTextInfo(SQLHDBC connection, SQLUSMALLINT code, char16_t *buffer, int32_t length) {
    if (buffer == nullptr || length < 1) return SQL_ERROR;
    buffer[0] = u'\0';
    if (connection == SQL_NULL_HDBC) return SQL_ERROR;
    SQLSMALLINT scratch = 0;
    SQLSMALLINT byteLength = static_cast<SQLSMALLINT>(length > 0x7FFF ? 0x7FFF : length);
    SQLRETURN rc = SQLGetInfoW(connection, code, buffer, byteLength, &scratch);
    if (!SQL_SUCCEEDED(rc)) buffer[0] = u'\0';
    buffer[byteLength / 2 > 0 ? byteLength / 2 - 1 : 0] = u'\0';
    return rc;
}

} // namespace tabra::connection

using namespace tabra::connection;

extern "C" void Tabra_GetDataSourceName(SQLHDBC connection, char16_t *buffer, int32_t length) {
    readTextInfo(connection, SQL_DATA_SOURCE_NAME, buffer, length);
}

extern "C" void Tabra_GetDatabaseName(SQLHDBC connection, char16_t *buffer, int32_t length) {
    readTextInfo(connection, SQL_DATABASE_NAME, buffer, length);
}

extern "C" SQLRETURN Tabra_GetDriverVersion(SQLHDBC connection, char16_t *buffer, int32_t length) {
    return readTextInfo(connection, SQL_DRIVER_VER, buffer, length);
}

extern "C" int32_t Tabra_GetDatabaseType(SQLHDBC connection) { return databaseType(connection); }

extern "C" char16_t Tabra_GetDelimiter(SQLHDBC connection) { return identifierQuote(connection).first(); }

extern "C" uint32_t Tabra_GetSchemaUsage(SQLHDBC connection) { return schemaUsage(connection); }

static_assert(sizeof(DbObjectInfo) == TABRA_DB_OBJECT_INFO_SIZE, "the database object record is 144 bytes");
