// Questions asked of an open connection. Nothing is cached: every call asks the
// driver again.
#include "core/odbc/odbc_text.h"
#include "tabra_connection.h"

#include <cstring>
#include <string_view>

using tabra::odbc::sqlText;

namespace {

// The three text queries share one pattern. The length goes to the driver as its
// buffer length, which ODBC counts in bytes: at most half of the caller's buffer is
// used, and nothing can overflow. The answer is always terminated within that half,
// also when a driver cuts it without a terminator or fails (then it is empty).
void readTextInfo(SQLHDBC connection, SQLUSMALLINT code, char16_t *buffer, int32_t length, SQLRETURN *result) {
    if (buffer == nullptr || length < 1) return;
    if (connection == SQL_NULL_HDBC) {
        buffer[0] = u'\0';
        return;
    }
    SQLSMALLINT scratch = 0;
    SQLSMALLINT byteLength = static_cast<SQLSMALLINT>(length > 0x7FFF ? 0x7FFF : length);
    buffer[0] = u'\0';
    SQLRETURN rc = SQLGetInfoW(connection, code, buffer, byteLength, &scratch);
    if (!SQL_SUCCEEDED(rc)) buffer[0] = u'\0';
    buffer[byteLength / 2 > 0 ? byteLength / 2 - 1 : 0] = u'\0';
    if (result != nullptr) *result = rc;
}

char16_t asciiUpper(char16_t c) { return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - 32) : c; }

bool equalsIgnoringCase(std::u16string_view text, std::u16string_view upper) {
    if (text.size() != upper.size()) return false;
    for (size_t i = 0; i < text.size(); ++i)
        if (asciiUpper(text[i]) != upper[i]) return false;
    return true;
}

} // namespace

extern "C" void Tabra_GetDataSourceName(SQLHDBC connection, char16_t *buffer, int32_t length) {
    readTextInfo(connection, SQL_DATA_SOURCE_NAME, buffer, length, nullptr);
}

extern "C" void Tabra_GetDatabaseName(SQLHDBC connection, char16_t *buffer, int32_t length) {
    readTextInfo(connection, SQL_DATABASE_NAME, buffer, length, nullptr);
}

extern "C" SQLRETURN Tabra_GetDriverVersion(SQLHDBC connection, char16_t *buffer, int32_t length) {
    SQLRETURN rc = SQL_ERROR;
    readTextInfo(connection, SQL_DRIVER_VER, buffer, length, &rc);
    return rc;
}

extern "C" int32_t Tabra_GetDatabaseType(SQLHDBC connection) {
    // 100 is handed over as the buffer length; the driver manager counts it in
    // characters for some drivers, so the buffer has room for 100 characters, and the
    // name is read as the first 49 of them.
    char16_t name[101] = {};
    SQLSMALLINT length = 0;
    SQLGetInfoW(connection, SQL_DBMS_NAME, name, 100, &length);
    name[49] = u'\0';
    std::u16string_view dbms(name);
    if (equalsIgnoringCase(dbms, u"MICROSOFT SQL SERVER")) return DbSqlServer;
    if (equalsIgnoringCase(dbms, u"ACCESS")) return DbAccess;
    if (dbms.size() >= 6 && equalsIgnoringCase(dbms.substr(0, 6), u"ORACLE")) return DbOracle;
    if (equalsIgnoringCase(dbms, u"MYSQL")) return DbMySql;
    if (equalsIgnoringCase(dbms, u"PROGRESS")) return DbProgress;
    if (equalsIgnoringCase(dbms, u"EXCEL")) return DbExcel;
    return DbOther;
}

extern "C" char16_t Tabra_GetDelimiter(SQLHDBC connection) {
    char16_t quote[11] = {}; // room for 10 characters: see Tabra_GetDatabaseType
    SQLSMALLINT length = 0;
    SQLGetInfoW(connection, SQL_IDENTIFIER_QUOTE_CHAR, quote, 10, &length);
    return quote[0];
}

extern "C" uint32_t Tabra_GetSchemaUsage(SQLHDBC connection) {
    if (connection == SQL_NULL_HDBC) return 0;
    SQLUINTEGER mask = 0;
    SQLSMALLINT length = 0;
    SQLRETURN rc = SQLGetInfoW(connection, SQL_SCHEMA_USAGE, &mask, 0, &length);
    return rc == SQL_SUCCESS ? mask : 0;
}
