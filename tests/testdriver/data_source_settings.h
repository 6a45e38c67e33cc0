// What a test-driver data source asks the driver to change, read from the data
// source's attributes in odbc.ini (and, for SQLDriverConnect, from the connection
// string, whose keys win):
//
//   DBMSName=ACCESS          SQLGetInfo(SQL_DBMS_NAME)
//   DBMSVersion=04.00.0000   SQLGetInfo(SQL_DBMS_VER)
//   QuoteChar=`              SQLGetInfo(SQL_IDENTIFIER_QUOTE_CHAR); "space" gives a
//                            blank, "none" the empty text
//   SchemaUsage=0x1d         SQLGetInfo(SQL_SCHEMA_USAGE), decimal or 0x hex
//   IdentifierCase=1         SQLGetInfo(SQL_IDENTIFIER_CASE) (1 upper, 2 lower, 3, 4)
//   Keywords=ALPHA,BETA      SQLGetInfo(SQL_KEYWORDS)
//   PrimaryKeys=0            SQLGetFunctions says SQLPrimaryKeys is missing
//   PrimaryKeyName=PK_T      SQLPrimaryKeys names every key so (PK_NAME), as servers
//                            that name key constraints do; SQLite leaves it null
//   ConnectInfo=01S02        connecting succeeds with info and this SQLSTATE
//   ExecInfo=01S02           every successful execution succeeds with info
//   FailPattern=DROP TABLE   statements containing this text (any letter case) fail
//   FailState=42000          ... with this SQLSTATE (default 42000)
//   FailMessage=[a]text      ... and this diagnostic message (default "[TabraTestDriver]
//                            Statement refused for the test: " and the statement)
//   FailValue=broken         reading a value that contains this text fails (22018);
//                            the driver then takes no row arrays, so that every value
//                            is read with SQLGetData
//   NoRowsNoData=1           an UPDATE or DELETE run directly that changes no row
//                            answers SQL_NO_DATA, as ODBC 3 drivers do
//
// Everything else passes through to the SQLite3 driver unchanged (Database=, ...).
#pragma once

#include <sql.h>

#include <optional>
#include <string>
#include <string_view>

namespace tabra::testdriver {

struct DataSourceSettings {
    std::optional<std::string> dbmsName;
    std::optional<std::string> dbmsVersion;
    std::optional<std::string> quoteChar;
    std::optional<SQLUINTEGER> schemaUsage;
    std::optional<SQLUSMALLINT> identifierCase;
    std::optional<std::string> keywords;
    bool primaryKeys = true;
    std::string primaryKeyName;
    std::string connectInfoState;
    std::string execInfoState;
    std::string failPattern;
    std::string failState = "42000";
    std::optional<std::string> failMessage;
    std::string failValue;
    bool noRowsNoData = false;

    // True when statement text (of the given length, or SQL_NTS) matches failPattern.
    bool refusesStatement(const SQLCHAR *text, SQLINTEGER length) const;
    // True when text is an UPDATE or DELETE whose "no rows" answer is SQL_NO_DATA.
    bool answersNoData(const SQLCHAR *text, SQLINTEGER length) const;
};

// Reads the settings of data source `dsn` from odbc.ini (user, then system).
DataSourceSettings readDataSourceSettings(const std::string &dsn);

// The settings for an SQLDriverConnect connection string: the attributes of its DSN,
// overridden by keys of the same names in the string itself.
DataSourceSettings readConnectionStringSettings(std::string_view connectionString);

// Text of an ODBC string argument given with a length or SQL_NTS.
std::string odbcString(const SQLCHAR *text, SQLINTEGER length);

} // namespace tabra::testdriver
