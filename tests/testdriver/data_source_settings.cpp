#include "data_source_settings.h"

#include <odbcinst.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <map>

namespace tabra::testdriver {
namespace {

std::string upper(std::string_view text) {
    std::string result(text);
    for (char &c : result) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return result;
}

std::string trimmed(std::string_view text) {
    auto isSpace = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
    return std::string(text);
}

// Attribute keys by upper-case name, as the settings understand them.
using Attributes = std::map<std::string, std::string>;

const char *const settingKeys[] = {"DBMSName",    "DBMSVersion", "QuoteChar",   "SchemaUsage",
                                   "IdentifierCase", "Keywords", "PrimaryKeys", "PrimaryKeyName", "ConnectInfo",
                                   "ExecInfo",    "FailPattern", "FailState",   "FailMessage", "FailValue",
                                   "NoRowsNoData"};

Attributes readDataSourceAttributes(const std::string &dsn) {
    Attributes attributes;
    if (dsn.empty()) return attributes;
    for (const char *key : settingKeys) {
        char value[512] = {};
        SQLGetPrivateProfileString(dsn.c_str(), key, "", value, sizeof value, "odbc.ini");
        std::string text = trimmed(value);
        if (!text.empty()) attributes[upper(key)] = text;
    }
    return attributes;
}

// Splits "KEY=value;KEY={value;with;separators};" into upper-case keys and values.
Attributes parseConnectionString(std::string_view text) {
    Attributes attributes;
    size_t position = 0;
    while (position < text.size()) {
        size_t equals = text.find('=', position);
        if (equals == std::string_view::npos) break;
        std::string key = upper(trimmed(text.substr(position, equals - position)));
        size_t valueStart = equals + 1;
        std::string value;
        size_t next;
        if (valueStart < text.size() && text[valueStart] == '{') {
            size_t close = text.find('}', valueStart + 1);
            if (close == std::string_view::npos) close = text.size();
            value = std::string(text.substr(valueStart + 1, close - valueStart - 1));
            next = text.find(';', close);
        } else {
            next = text.find(';', valueStart);
            value = trimmed(text.substr(valueStart, next == std::string_view::npos ? std::string_view::npos
                                                                                   : next - valueStart));
        }
        if (!key.empty()) attributes[key] = value;
        if (next == std::string_view::npos) break;
        position = next + 1;
    }
    return attributes;
}

DataSourceSettings settingsFrom(const Attributes &attributes) {
    DataSourceSettings settings;
    auto value = [&](const char *key) -> const std::string * {
        auto found = attributes.find(upper(key));
        return found == attributes.end() ? nullptr : &found->second;
    };
    if (auto *text = value("DBMSName")) settings.dbmsName = *text;
    if (auto *text = value("DBMSVersion")) settings.dbmsVersion = *text;
    if (auto *text = value("QuoteChar")) {
        std::string keyword = upper(*text);
        settings.quoteChar = keyword == "SPACE" ? " " : keyword == "NONE" ? "" : *text;
    }
    if (auto *text = value("SchemaUsage"))
        settings.schemaUsage = static_cast<SQLUINTEGER>(std::strtoul(text->c_str(), nullptr, 0));
    if (auto *text = value("IdentifierCase"))
        settings.identifierCase = static_cast<SQLUSMALLINT>(std::strtoul(text->c_str(), nullptr, 10));
    if (auto *text = value("Keywords")) settings.keywords = *text;
    if (auto *text = value("PrimaryKeys")) settings.primaryKeys = std::strtol(text->c_str(), nullptr, 10) != 0;
    if (auto *text = value("PrimaryKeyName")) settings.primaryKeyName = *text;
    if (auto *text = value("ConnectInfo")) settings.connectInfoState = *text;
    if (auto *text = value("ExecInfo")) settings.execInfoState = *text;
    if (auto *text = value("FailPattern")) settings.failPattern = *text;
    if (auto *text = value("FailState")) settings.failState = *text;
    if (auto *text = value("FailMessage")) settings.failMessage = *text;
    if (auto *text = value("FailValue")) settings.failValue = *text;
    if (auto *text = value("NoRowsNoData")) settings.noRowsNoData = std::strtol(text->c_str(), nullptr, 10) != 0;
    return settings;
}

} // namespace

std::string odbcString(const SQLCHAR *text, SQLINTEGER length) {
    if (!text) return {};
    const char *chars = reinterpret_cast<const char *>(text);
    if (length == SQL_NTS || length < 0) return std::string(chars);
    return std::string(chars, static_cast<size_t>(length));
}

bool DataSourceSettings::refusesStatement(const SQLCHAR *text, SQLINTEGER length) const {
    if (failPattern.empty()) return false;
    std::string statement = upper(odbcString(text, length));
    return statement.find(upper(failPattern)) != std::string::npos;
}

bool DataSourceSettings::answersNoData(const SQLCHAR *text, SQLINTEGER length) const {
    if (!noRowsNoData) return false;
    std::string statement = upper(trimmed(odbcString(text, length)));
    return statement.rfind("UPDATE", 0) == 0 || statement.rfind("DELETE", 0) == 0;
}

DataSourceSettings readDataSourceSettings(const std::string &dsn) {
    return settingsFrom(readDataSourceAttributes(dsn));
}

DataSourceSettings readConnectionStringSettings(std::string_view connectionString) {
    Attributes fromString = parseConnectionString(connectionString);
    auto dsn = fromString.find("DSN");
    Attributes attributes = readDataSourceAttributes(dsn == fromString.end() ? std::string() : dsn->second);
    for (auto &[key, value] : fromString) attributes[key] = value;
    return settingsFrom(attributes);
}

} // namespace tabra::testdriver
