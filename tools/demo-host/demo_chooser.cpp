// Demo commands of the database object chooser, the library's hub dialog: "chooser"
// opens it on the data source (on screen, or played by --script), "tour" plays a
// scripted tour through it and prints what each step did to the database.
#include "demo_host.h"

#include <sql.h>
#include <sqlext.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace demo {
namespace {

constexpr int32_t kListCapacity = 30000;

bool hasDisplay() {
    const char *display = std::getenv("DISPLAY");
    return display != nullptr && *display != '\0';
}

DbObjectDialogRequest hubRequest() {
    DbObjectDialogRequest request{};
    request.DataSource = chosenDataSource();
    request.DbObject.DbObjectType = TABRA_OBJECT_TABLE;
    request.PageMask = TABRA_CHOOSER_PAGE_TABLES | TABRA_CHOOSER_PAGE_VIEWS;
    request.DialogOptions = TABRA_CHOOSER_OPTION_OK | TABRA_CHOOSER_OPTION_DATA_SOURCE;
    request.TablesButtons = request.ViewsButtons = -1; // every tool
    return request;
}

void printChoice(int32_t result, const DbObjectDialogRequest &request) {
    if (result != 1) {
        std::printf("The chooser was closed without a choice\n");
        return;
    }
    std::printf("Chosen: %s %s (action %d)\n", request.DbObject.DbObjectType == TABRA_OBJECT_VIEW ? "view" : "table",
                toUtf8(request.DbObject.DbObjectName).c_str(), request.Action);
}

int runChooser(SQLHDBC, const std::vector<std::string> &arguments) {
    if (!arguments.empty()) {
        std::fprintf(stderr, "tabra-demo: chooser takes no arguments\n");
        return 2;
    }
    if (!hasDisplay() && TabraScript_PendingCount() == 0) {
        TabraScript_Begin();
        TabraScript_QueueUtf8("dialog 104: click 2");
        std::printf("No display: the chooser is closed at once\n");
    }
    DbObjectDialogRequest request = hubRequest();
    printChoice(Tabra_DbObjectDialog(&request), request);
    return 0;
}

// ---- The tour ----

std::vector<std::u16string> split(const std::u16string &list) {
    std::vector<std::u16string> names;
    size_t start = 0;
    while (start < list.size()) {
        size_t end = list.find(u'\t', start);
        if (end == std::u16string::npos) end = list.size();
        if (end > start) names.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

// The tables with their record counts and the views: what a step is judged by.
struct Snapshot {
    std::map<std::u16string, int32_t> tables;
    std::map<std::u16string, int32_t> views;
};

Snapshot snapshot(SQLHDBC connection) {
    Snapshot taken;
    std::vector<char16_t> list(kListCapacity);
    for (auto [flag, objects] : {std::pair{TABRA_TABLE_TYPE_TABLE, &taken.tables},
                                 std::pair{TABRA_TABLE_TYPE_VIEW, &taken.views}}) {
        if (Tabra_GetTables(connection, flag, list.data(), kListCapacity, u"\t") != 0) continue;
        for (const std::u16string &name : split(list.data()))
            if (name.rfind(u"sqlite_", 0) != 0) // the database's own bookkeeping
                (*objects)[name] = Tabra_GetRecordCount(connection, name.c_str(), 0);
    }
    return taken;
}

std::string changes(const Snapshot &before, const Snapshot &after) {
    std::string text;
    auto add = [&](const std::string &piece) { text += (text.empty() ? "" : ", ") + piece; };
    for (auto [kind, was, is] : {std::tuple{"table", &before.tables, &after.tables},
                                 std::tuple{"view", &before.views, &after.views}}) {
        for (const auto &[name, rows] : *is) {
            auto old = was->find(name);
            if (old == was->end())
                add(std::string("new ") + kind + " " + toUtf8(name) + " (" + std::to_string(rows) + " rows)");
            else if (old->second != rows)
                add(toUtf8(name) + ": " + std::to_string(old->second) + " -> " + std::to_string(rows) + " rows");
        }
        for (const auto &[name, rows] : *was)
            if (is->find(name) == is->end()) add(std::string(kind) + " " + toUtf8(name) + " deleted");
    }
    return text;
}

std::string fileFigures(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return path + " is missing";
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    size_t lines = 0;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) // UTF-16LE
        if (bytes[i] == '\n' && bytes[i + 1] == '\0') ++lines;
    return path + ": " + std::to_string(lines) + " lines, " + std::to_string(bytes.size()) + " bytes";
}

std::string driverFigures(SQLHDBC connection) {
    char16_t name[100] = {}, dbmsVersion[100] = {}, version[100] = {};
    SQLSMALLINT length = 0;
    SQLGetInfoW(connection, SQL_DBMS_NAME, name, sizeof name / 2, &length);
    SQLGetInfoW(connection, SQL_DBMS_VER, dbmsVersion, sizeof dbmsVersion / 2, &length);
    Tabra_GetDriverVersion(connection, version, 100);
    return toUtf8(name) + " " + toUtf8(dbmsVersion) + ", driver " + toUtf8(version);
}

std::string countFigures(SQLHDBC connection, const std::string &argument) {
    size_t space = argument.find(' ');
    std::string table = argument.substr(0, space);
    std::string condition = space == std::string::npos ? "" : argument.substr(space + 1);
    int32_t count = Tabra_GetRecordCountExt(connection, toUtf16(table).c_str(), toUtf16(condition).c_str());
    return std::to_string(count) + " records of " + table + (condition.empty() ? "" : " with " + condition);
}

std::string columnFigures(SQLHDBC connection, const std::string &table) {
    std::vector<char16_t> fields(kListCapacity);
    Tabra_GetFields(connection, toUtf16(table).c_str(), 0, u", ", fields.data(), kListCapacity);
    return table + " has the columns " + toUtf8(fields.data());
}

// A step of the tour: its title ("## TITLE"), its script actions, and what is printed
// after it: what changed in the tables and views, or what a "#! KIND ARGUMENT" line
// asks for (file PATH, count TABLE [CONDITION], columns TABLE, driver).
struct Step {
    std::string title;
    std::vector<std::string> actions;
    std::string figure, argument;
};

std::string stepFigures(SQLHDBC connection, const Step &step) {
    if (step.figure == "file") return fileFigures(step.argument);
    if (step.figure == "count") return countFigures(connection, step.argument);
    if (step.figure == "columns") return columnFigures(connection, step.argument);
    if (step.figure == "driver") return driverFigures(connection);
    return {};
}

struct Tour {
    SQLHDBC connection = SQL_NULL_HDBC;
    std::vector<Step> steps;
    size_t done = 0;
    Snapshot last;
};

// Runs when the chooser waits again after a step: one line of what it did.
void stepDone(HWND, void *context) {
    auto &tour = *static_cast<Tour *>(context);
    const Step &step = tour.steps[tour.done++];
    Snapshot now = snapshot(tour.connection);
    std::string figures = step.figure.empty() ? changes(tour.last, now) : stepFigures(tour.connection, step);
    std::printf("%2zu. %-42s %s\n", tour.done, step.title.c_str(), figures.empty() ? "done" : figures.c_str());
    std::fflush(stdout);
    tour.last = std::move(now);
}

// The tour's files go to a folder of the user's own (a shared /tmp may hold another
// user's files of the same name): ${TOUR_FOLDER} in the script stands for it.
std::string tourFolder() {
    const char *cache = std::getenv("XDG_CACHE_HOME"), *home = std::getenv("HOME");
    std::filesystem::path folder = cache != nullptr && *cache != '\0' ? std::filesystem::path(cache)
                                   : home != nullptr && *home != '\0' ? std::filesystem::path(home) / ".cache"
                                                                      : std::filesystem::temp_directory_path();
    folder /= "tabra-tour";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return folder.string();
}

// Replaces ${TOUR_FOLDER}; inside a script action's quotes with its escapes.
std::string withTourFolder(std::string line, const std::string &folder, bool quoted) {
    std::string text;
    for (char c : folder) {
        if (quoted && (c == '"' || c == '\\')) text += '\\';
        text += c;
    }
    const std::string placeholder = "${TOUR_FOLDER}";
    for (size_t at = line.find(placeholder); at != std::string::npos; at = line.find(placeholder, at + text.size()))
        line.replace(at, placeholder.size(), text);
    return line;
}

std::vector<Step> readTour(const std::string &path) {
    std::vector<Step> steps;
    std::ifstream file(path);
    const std::string folder = tourFolder();
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("## ", 0) == 0) {
            steps.push_back({line.substr(3), {}, {}, {}});
        } else if (steps.empty() || line.empty()) {
            continue;
        } else if (line.rfind("#! ", 0) == 0) {
            size_t space = line.find(' ', 3);
            steps.back().figure = line.substr(3, space == std::string::npos ? std::string::npos : space - 3);
            steps.back().argument =
                space == std::string::npos ? "" : withTourFolder(line.substr(space + 1), folder, false);
        } else if (line[0] != '#') {
            steps.back().actions.push_back(withTourFolder(line, folder, true));
        }
    }
    return steps;
}

// Objects and files of an earlier tour are removed first, so that the tour can run
// again.
void removeEarlierTour(SQLHDBC connection, const std::vector<Step> &steps) {
    for (const Step &step : steps)
        if (step.figure == "file") std::remove(step.argument.c_str());
    SQLHSTMT statement = SQL_NULL_HSTMT;
    if (SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement) == SQL_SUCCESS) {
        std::u16string drop = u"DROP VIEW IF EXISTS TourView";
        SQLExecDirectW(statement, reinterpret_cast<SQLWCHAR *>(drop.data()), SQL_NTS);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
    }
    for (const char16_t *table : {u"TourCustomers", u"TourNotes", u"TourCopy"})
        Tabra_DeleteTable(connection, table, TABRA_DELETE_NO_CONFIRM | TABRA_DELETE_MISSING_OK);
}

int runTour(SQLHDBC connection, const std::vector<std::string> &arguments) {
    std::string path = arguments.empty() ? "tools/demo/tour.script" : arguments[0];
    Tour tour{connection, readTour(path), 0, {}};
    if (tour.steps.empty()) {
        std::fprintf(stderr, "tabra-demo: no steps in %s\n", path.c_str());
        return 2;
    }
    removeEarlierTour(connection, tour.steps);
    tour.last = snapshot(connection);
    TabraScript_Begin();
    for (const Step &step : tour.steps) {
        for (const std::string &action : step.actions)
            if (TabraScript_QueueUtf8(action.c_str()) != 1) {
                std::fprintf(stderr, "tabra-demo: not a script action: %s\n", action.c_str());
                return 2;
            }
        TabraScript_QueueCallback(104, stepDone, &tour);
    }
    TabraScript_QueueUtf8("dialog 104: click 2");
    std::printf("A tour of the database object chooser, played by %s:\n", path.c_str());
    DbObjectDialogRequest request = hubRequest();
    Tabra_DbObjectDialog(&request);
    std::printf("%zu of %zu steps done\n", tour.done, tour.steps.size());
    return tour.done == tour.steps.size() ? 0 : 1;
}

const DemoCommand chooser{"chooser", "",
                          "the database object chooser: every tool of the library for a table or view", runChooser};
const DemoCommand tourCommand{"tour", "[SCRIPT]",
                              "a scripted tour through the chooser (tools/demo/tour.script), one line per step",
                              runTour};

} // namespace
} // namespace demo
