// Shared helpers of the catalog tests and the subsystems above it: a backend fixture
// with a connection, table lists as vectors, names quoted for each backend (independent
// of the library's quoting), a statement hook that records, checks of a scripted run,
// and the texts of list views, resources and the registry.
#pragma once

#include "catalog/resource_ids.h"
#include "core/module/module_state.h"
#include "core/resource_ids.h"
#include "support/backend_test.h"
#include "support/script_lines.h"
#include "support/scripted_run.h"
#include "support/test_text.h"
#include "ostrel_hook.h"
#include "ostrel_registry.h"
#include "tabra_catalog.h"
#include "window/window_test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tabra::test {

inline std::vector<std::u16string> splitList(std::u16string_view text, char16_t separator = u'\t') {
    std::vector<std::u16string> items;
    if (text.empty()) return items;
    size_t start = 0;
    for (;;) {
        auto end = text.find(separator, start);
        items.emplace_back(text.substr(start, end == std::u16string_view::npos ? text.npos : end - start));
        if (end == std::u16string_view::npos) break;
        start = end + 1;
    }
    return items;
}

inline bool contains(const std::vector<std::u16string> &items, std::u16string_view item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

// The table list of Tabra_GetTablesExtended, tab-separated, split (and the result).
struct TableList {
    int32_t result = 0;
    std::u16string text;
    std::vector<std::u16string> items;
};
inline TableList readTables(SQLHDBC connection, int32_t flags, const char16_t *schema = nullptr, uint8_t qualify = 0,
                            int32_t capacity = 30000) {
    TableList list;
    std::u16string buffer(static_cast<size_t>(capacity), u'#');
    list.result = Tabra_GetTablesExtended(connection, flags, schema, qualify, buffer.data(), capacity, u"\t");
    list.text = buffer.c_str();
    list.items = splitList(list.text);
    return list;
}

// A backend test with a connection opened for each test and prepared by the suite.
class ConnectedBackendTest : public BackendTest {
protected:
    void SetUp() override {
        BackendTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        connection_.emplace(connect());
        prepare(*connection_);
    }
    // What every test of the suite starts with.
    virtual void prepare(const OdbcConnection &) {}
    SQLHDBC hdbc() const { return connection_->handle(); }

    std::optional<OdbcConnection> connection_;
};

// A name quoted with the backend's identifier quote character.
inline std::u16string quoted(Backend backend, std::u16string_view name) {
    char16_t quote = backend == Backend::MariaDB ? u'`' : u'"';
    return quote + std::u16string(name) + quote;
}

// A host hook that records every statement and lets it run, unless it refuses all or
// declines the statements the test picks.
struct RecordingHook {
    explicit RecordingHook(bool allow = true, std::function<bool(const std::u16string &)> declines = {})
        : allow(allow), declines(std::move(declines)) {
        Ostrel_SetStatementHook(
            [](const char16_t *statement, void *context) -> int32_t {
                auto *self = static_cast<RecordingHook *>(context);
                const std::u16string &seen = self->statements.emplace_back(statement ? statement : u"");
                return self->allow && !(self->declines && self->declines(seen)) ? 1 : 0;
            },
            this);
    }
    ~RecordingHook() { Ostrel_SetStatementHook(nullptr, nullptr); }
    RecordingHook(const RecordingHook &) = delete;
    RecordingHook &operator=(const RecordingHook &) = delete;
    bool allow;
    std::function<bool(const std::u16string &)> declines;
    std::vector<std::u16string> statements;
};

inline void expectNothingShown(const ScriptedRun &run) {
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_TRUE(run.records(TABRA_RECORD_MESSAGE).empty());
    EXPECT_TRUE(run.records(TABRA_RECORD_DIALOG_OPENED, core::ids::kErrorDialog.id).empty());
}

// The test driver's statement handles: none may be left open after an operation.
inline void expectNoOpenStatements(const char *what) {
    EXPECT_EQ(testDriverStatementCounts().open(), 0) << what;
}

// Number of ODBC error dialogs shown in the run.
inline size_t errorDialogsShown(const ScriptedRun &run) { return run.records(TABRA_RECORD_DIALOG_OPENED, core::ids::kErrorDialog.id).size(); }

// The text of a list view's cell.
inline std::u16string listViewText(HWND view, int32_t item, int32_t subItem) {
    char16_t text[1000] = {};
    LVITEMW query{};
    query.iSubItem = subItem;
    query.pszText = text;
    query.cchTextMax = 1000;
    SendMessageW(view, LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&query));
    return text;
}

// A string of the library's resource library, as its dialogs show it.
inline std::u16string resourceText(int32_t id) {
    char16_t text[1000] = {};
    module::LoadTranslatedString(module::resourceLibrary(), id, text, 1000);
    return text;
}

// A string value as the registry holds it (the fallback where there is none).
inline std::u16string registryText(HKEY root, const char16_t *key, const char16_t *subKey, const char16_t *value,
                                   const char16_t *fallback = u"") {
    char16_t text[1000] = {};
    Ostrel_ReadStringFromRegistry(root, key, 0, subKey, value, fallback, text, 1000, 0);
    return text;
}

// A modeless dialog with one list box (id 1) to fill; create it inside a scripted run.
class TestListBox {
public:
    TestListBox() {
        module_.add(DialogBuilder(800, u"Boxes").listBox(1, 0));
        dialog_ = createModeless(module_, 800, plainProcedure());
        box_ = GetDlgItem(dialog_, 1);
    }
    TestListBox(const TestListBox &) = delete;
    TestListBox &operator=(const TestListBox &) = delete;
    ~TestListBox() { DestroyWindow(dialog_); }
    HWND handle() const { return box_; }
    std::vector<std::u16string> entries() const {
        std::vector<std::u16string> found;
        char16_t entry[300];
        for (int32_t i = 0; i < Ostrel_GetBoxCount(box_); ++i) {
            Ostrel_GetBoxEntry(box_, i, entry, 300);
            found.emplace_back(entry);
        }
        return found;
    }

private:
    TestModule module_;
    HWND dialog_ = nullptr;
    HWND box_ = nullptr;
};

} // namespace tabra::test
