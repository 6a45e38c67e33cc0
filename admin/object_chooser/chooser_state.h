// The database object chooser's working state and what its dialog and its four pages
// share: the pages by kind, filling and selecting their lists, the enabled states, and
// the connections the tools run on.
#pragma once

#include "tabra_admin.h"
#include "tabra_window.h"

#include <sql.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tabra::admin::object_chooser {

// A page of the dialog: its kind (TABRA_CHOOSER_PAGE_*, also the object type of its
// entries) and its window.
struct ChooserPage {
    int32_t kind = 0;
    HWND window = nullptr;
};

// The request's working copy with the dialog's connection, closed when the state goes.
struct ChooserState {
    DbObjectDialogRequest request{};
    std::u16string title; // the request's title, copied
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    HWND dialog = nullptr;
    std::vector<ChooserPage> pages; // in the order of their tabs

    ChooserState() = default;
    ChooserState(const ChooserState &) = delete;
    ChooserState &operator=(const ChooserState &) = delete;
    ~ChooserState();

    void connect();
    void disconnect();
    std::u16string schema() const;
};

// A connection of its own from the data source, for a tool that may change the
// database's state (a wizard's transaction); a failure has been shown.
class FreshConnection {
public:
    explicit FreshConnection(const DataSourceInfo &record);
    FreshConnection(const FreshConnection &) = delete;
    FreshConnection &operator=(const FreshConnection &) = delete;
    ~FreshConnection();
    explicit operator bool() const { return connection_ != SQL_NULL_HDBC; }
    SQLHDBC handle() const { return connection_; }

private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
};

// A button of a page and the bit of the page's mask that enables it at start.
struct MaskedButton {
    int32_t control;
    int32_t bit;
};

// What a page is: its kind, template and procedure, its list, its buttons by mask and
// the buttons that follow its selection.
struct PageKind {
    int32_t kind;
    int32_t templateId;
    DLGPROC procedure;
    int32_t list;
    int32_t DbObjectDialogRequest::*mask;
    std::span<const MaskedButton> buttons;
    std::span<const int32_t> followers;
    void (*fill)(HWND page, ChooserState &state); // the list's entries, replaced
};

// The fillings of the tables and views lists (tables_page.cpp, views_page.cpp).
void fillTables(HWND page, ChooserState &state);
void fillViews(HWND page, ChooserState &state);

// The kinds in the order the pages are added.
std::span<const PageKind> pageKinds();
const PageKind &pageKind(int32_t kind);

// The page of a kind, or null when the request did not ask for it.
HWND pageOf(const ChooserState &state, int32_t kind);
// The selected entry of a page's list (empty when none).
std::u16string selectedName(HWND page, int32_t kind);

// A page's start: its list filled, the request's object selected (else entry 0), its
// buttons enabled by its mask.
void startPage(HWND page, ChooserState &state, int32_t kind);
// Fills a page's list again, keeping its selection (entry 0 when it is gone).
void refillKeeping(ChooserState &state, int32_t kind);
// Fills a page's list again and selects name (entry 0 when it is not there).
void refillSelecting(ChooserState &state, int32_t kind, const std::u16string &name);
// Fills a page's list again and selects the entry at the old position (the last one
// when the list got shorter).
void refillAtPosition(ChooserState &state, int32_t kind);
// Every list filled again, keeping (or with entry0: dropping) its selection.
void refillAll(ChooserState &state, bool entry0);

// The schema group, OK and the buttons that follow each page's selection; the
// current selection becomes the request's object.
void updateStates(ChooserState &state);
// A page's command for a change of its list's selection: the states follow.
void selectionChanged(HWND page, ChooserState &state, int32_t control);
// Sets the action and asks the dialog to end with it (when an entry is selected).
void endWithAction(ChooserState &state, int32_t action);
// The request's object from the current page; true when an entry is selected.
bool takeSelection(ChooserState &state);

// A short-lived notice of the resource library.
void showNotice(int32_t stringId);
// A string of the resource library with "%s" replaced by argument.
std::u16string formattedString(int32_t stringId, const std::u16string &argument);
// The record of the selected object for a tool: the request's object with the
// page's entry and kind.
DbObjectInfo objectRecord(const ChooserState &state, const std::u16string &name, int32_t kind);
// Runs a tool on the selected object of a page on a fresh connection.
void runObjectTool(HWND page, ChooserState &state, int32_t kind, int32_t (*tool)(SQLHDBC, DbObjectInfo *));
// The tools a page runs that way, and a page's command for one of them.
int32_t exportRows(SQLHDBC connection, DbObjectInfo *object);
int32_t addRecords(SQLHDBC connection, DbObjectInfo *object);
int32_t deleteRecords(SQLHDBC connection, DbObjectInfo *object);
int32_t updateRecords(SQLHDBC connection, DbObjectInfo *object);
template <int32_t Kind, int32_t (*Tool)(SQLHDBC, DbObjectInfo *)>
void objectToolCommand(HWND page, ChooserState &state, int32_t) {
    runObjectTool(page, state, Kind, Tool);
}
// Registry values below the library's root.
int32_t readChoice(const char16_t *value);
void writeChoice(const char16_t *value, int32_t number);
void storeSchema(const ChooserState &state);
// The schema last chosen for the request's data source ("" when none).
std::u16string storedSchema(const ChooserState &state);

inline constexpr char16_t kSystemTablesValue[] = u"SystemTables";
inline constexpr char16_t kEditorViewsOnlyValue[] = u"VrimViewsOnly";

} // namespace tabra::admin::object_chooser
