// What the library asks of an open connection: the identifier quote string, whether
// the database knows schemas, the database product's name and the kind of database
// it is, and the driver's text answers. Every subsystem asks here. Nothing is cached:
// each call asks the driver again, so a connection can never answer for another.
#pragma once

#include "core/odbc/statement_runner.h"
#include "tabra_connection.h"

#include <sql.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tabra::connection {

// The driver's answer to SQL_IDENTIFIER_QUOTE_CHAR, asked with 10 as the buffer
// length; the callers' rules differ, so each reads the answer its own way.
struct IdentifierQuote {
    std::u16string text;       // what came back, at most 4 characters (a quote string has no more)
    SQLSMALLINT length = 0;    // the length the driver reported
    bool answered = false;     // the call succeeded (with or without information)

    // The quote string of identifier preparation: empty when the driver does not quote
    // (a reported length below 1, or a space first).
    std::u16string quoteString() const { return length < 1 || first() == u' ' ? std::u16string() : text; }
    // The first character as it came, untested (0 when nothing came).
    char16_t first() const { return text.empty() ? u'\0' : text[0]; }
    // The quote character of clause splitting: 0 when the call failed or the driver
    // answered a space.
    char16_t splittingQuote() const { return !answered || first() == u' ' ? u'\0' : first(); }
};

// Asks the quote string. A null connection asks nothing and gets the empty answer.
IdentifierQuote identifierQuote(SQLHDBC connection);

// The SQL_SCHEMA_USAGE bit mask; 0 for a null connection or a call whose result the
// acceptance refuses (Strict: anything but SQL_SUCCESS, as Tabra_GetSchemaUsage has it;
// the table list takes an informational answer too). Non-zero: the database knows
// schemas.
uint32_t schemaUsage(SQLHDBC connection, odbc::Acceptance acceptance = odbc::Acceptance::Strict);

// The database product's name (SQL_DBMS_NAME, 100 handed over as the buffer length),
// read as its first 49 characters; empty when the call fails or there is no connection.
std::u16string dbmsName(SQLHDBC connection);

// The kind of database, from the product's name compared without regard to case:
// "MICROSOFT SQL SERVER", "ACCESS", "ORACLE..." (the first 6 characters), "MYSQL",
// "PROGRESS", "EXCEL", else DbOther. Asked again on every call.
DatabaseType databaseType(SQLHDBC connection);
// The same rule on a name as the driver reports it.
DatabaseType databaseTypeOfName(std::u16string_view dbmsName);

// What the database can do and the dialect texts it takes (auto-increment column type,
// copy, rename and drop statements, column suffixes, type patterns, "no such table"
// states, ...) are in core/connection/capabilities.h, found by the DBMS name; callers
// must not keep their own copies of such rules.

// How the database treats the case of unquoted identifiers (SQL_IDENTIFIER_CASE):
// SQL_IC_UPPER or SQL_IC_LOWER when it folds them to that case, SQL_IC_SENSITIVE or
// SQL_IC_MIXED when it keeps them; 0 for a null connection or a failed call.
SQLUSMALLINT identifierCase(SQLHDBC connection);

// The driver's own reserved words (SQL_KEYWORDS): a comma-separated list, empty when
// the driver names none, the call fails or there is no connection. Some drivers take
// long over this answer (MariaDB's about 70 microseconds): ask it only when needed.
std::u16string keywords(SQLHDBC connection);

// Whether character data is best fetched from this connection as UTF-8 (SQL_C_CHAR)
// that the library decodes itself, rather than as wide characters: where the driver
// hands out UTF-8 and its wide conversion is far slower. That is the MariaDB connector
// on a connection whose character set is utf8 or utf8mb4 (its collation answer,
// SQL_COLLATION_SEQ, names the set; about six times faster for a large result, see
// bench/), and the Unicode PostgreSQL driver (psqlodbcw), which always talks UTF-8
// with the server and hands it out unchanged as SQL_C_CHAR whatever the process's
// locale (about 15 % less time for a large result). Every other driver and character
// set: wide characters.
bool fetchesTextAsUtf8(SQLHDBC connection);

// A text answer of SQLGetInfoW (data source name, database name, driver version) into
// buffer: length is handed to the driver as its buffer length, which ODBC counts in
// bytes, so at most half of the buffer is used; the answer is always terminated
// within that half and empty after a failure. A null connection stores an empty text
// and answers SQL_ERROR; a null buffer or a length below 1 is left alone.
SQLRETURN readTextInfo(SQLHDBC connection, SQLUSMALLINT code, char16_t *buffer, int32_t length);

} // namespace tabra::connection
