// Shared pieces of the GTK renderer tests (header only: the test build compiles
// *_test.cpp). Tests whose suite names contain "Gtk" run under a virtual X server; they
// skip when no display can be opened. Each test drives the real renderer: the
// automation hook tells it when a window is on screen and drawn, the test looks at the
// widgets, saves a screenshot, and acts through the display server as a user would.
#pragma once

#ifdef TABRA_WITH_GTK

#include "core/module/module_state.h"
#include "platform/gtk/gtk_automation.h"
#include "platform/gtk/gtk_session.h"
#include "platform/gtk/label_text.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/resource_script_file.h"
#include "platform/window/renderer_selection.h"
#include "platform/window/window_registry.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra_window.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tabra::test {

// Loads the resource library of a language for one scope, and the usual one after it.
class ScopedLanguage {
public:
    explicit ScopedLanguage(const std::string &language) : variable_(std::in_place, "ZUL_LANGUAGE", language.c_str()) {
        module::moduleEntryPoint(module::ProcessAttach);
    }
    ~ScopedLanguage() {
        variable_.reset();
        module::moduleEntryPoint(module::ProcessAttach);
    }

private:
    std::optional<ScopedEnvironmentVariable> variable_;
};

// Where the screenshots go: TABRA_SCREENSHOT_DIR, else "screenshots" in the build tree.
inline std::filesystem::path screenshotDirectory() {
    std::filesystem::path directory;
    if (const char *configured = std::getenv("TABRA_SCREENSHOT_DIR"); configured && *configured) directory = configured;
    else if (const char *build = std::getenv("TABRA_RESOURCE_DIR"); build && *build) directory = std::filesystem::path(build) / "screenshots";
    else directory = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "screenshots";
    std::filesystem::create_directories(directory);
    return directory;
}

inline std::string screenshotPath(const std::string &name) { return (screenshotDirectory() / (name + ".png")).string(); }

// A shipped resource library ("en", "de"), loaded from the build tree's language
// folder; the caller frees it.
inline HMODULE loadShippedResources(const std::string &language) {
    std::filesystem::path directory;
    if (const char *configured = std::getenv("TABRA_RESOURCE_DIR"); configured && *configured) directory = configured;
    else directory = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    std::string error;
    auto loaded = platform::readResourceLibrary((directory / language / "tabraRes.rc").string(), error);
    if (!loaded) {
        ADD_FAILURE() << error;
        return nullptr;
    }
    return platform::adoptResourceModule(std::move(loaded));
}

// The shipped English resource library, loaded once.
inline HMODULE englishResources() {
    static HMODULE module = loadShippedResources("en");
    return module;
}

// A label may be a few pixels taller than its rectangle (GTK's line height exceeds the
// font height the dialog units come from), not a line taller.
inline constexpr int kLabelHeightSlack = 5;

// Checks the texts of a dialog's (or page's) visible controls against their rectangles:
// a label that needs a line more than it has room for, or a button too narrow for its
// caption, is a layout fault of the template or of the renderer's sizes.
inline void expectTextsFit(HWND dialog, const std::string &where) {
    auto window = window::findWindow(dialog);
    ASSERT_NE(window, nullptr);
    for (HWND child : window->children) {
        auto control = window::findWindow(child);
        GtkWidget *widget = control ? gtk::automation::widgetOf(child) : nullptr;
        if (!widget || !control->visible || control->text.empty()) continue;
        std::string name = where + " control " + std::to_string(control->id) + " \"" + gtk::utf8(control->text) + "\"";
        GtkAllocation area;
        gtk_widget_get_allocation(widget, &area);
        if (GTK_IS_LABEL(widget)) {
            int needed = 0;
            gtk_widget_get_preferred_height_for_width(widget, area.width, &needed, nullptr);
            int given = gtk_widget_get_allocated_height(widget);
            GtkRequisition requested;
            gtk_widget_get_size_request(widget, &requested.width, &requested.height);
            EXPECT_LE(needed, requested.height + kLabelHeightSlack) << name << " needs " << needed << " pixels, has " << given;
        } else if (GTK_IS_BUTTON(widget) && !GTK_IS_FRAME(widget)) {
            int natural = 0;
            gtk_widget_get_preferred_width(widget, nullptr, &natural);
            EXPECT_LE(natural, area.width) << name << " wants " << natural << " pixels across, has " << area.width;
        }
    }
}

// Runs every test on the GTK renderer, or skips it when there is no display. A test
// that hangs (a window nobody answers) ends the process after a minute rather than at
// the test runner's time limit.
class GtkRendererTest : public ::testing::Test {
protected:
    void SetUp() override {
        setenv("GSETTINGS_BACKEND", "memory", 0);
        setenv("NO_AT_BRIDGE", "1", 0);
        // Clicks and keys the tests send through the display server arrive as core
        // events, which GDK reads only in this mode (the test programs of GTK do the same).
        setenv("GDK_CORE_DEVICE_EVENTS", "1", 0);
        const char *display = std::getenv("DISPLAY");
        if (!display || !*display) GTEST_SKIP() << "no display (run under xvfb-run)";
        if (std::string(window::activeRenderer().name()) != "gtk") GTEST_SKIP() << "the GTK renderer is not in use";
        watchdog_ = g_timeout_add_seconds(60, [](gpointer) -> gboolean {
            std::fprintf(stderr, "GTK renderer test: no answer after 60 s; giving up\n");
            std::abort();
        }, nullptr);
    }
    void TearDown() override {
        gtk::automation::setShownCallback({});
        if (watchdog_) g_source_remove(watchdog_);
    }

    // Calls `act` for each window shown, in order; windows beyond the list fail the
    // test and are left to the watchdog.
    void onShown(std::vector<std::function<void(const gtk::automation::Shown &)>> acts) {
        acts_ = std::move(acts);
        next_ = 0;
        gtk::automation::setShownCallback([this](const gtk::automation::Shown &shown) {
            if (next_ >= acts_.size()) {
                ADD_FAILURE() << "unexpected " << gtk::automation::shownKindName(shown.kind) << " " << shown.id;
                return;
            }
            acts_[next_++](shown);
        });
    }
    std::size_t shownCount() const { return next_; }

    // Runs an action once the event loop has run for a while (key and click events sent
    // before are handled by then).
    static void later(int milliseconds, std::function<void()> action) {
        g_timeout_add(static_cast<guint>(milliseconds), [](gpointer data) -> gboolean {
            std::unique_ptr<std::function<void()>> owned(static_cast<std::function<void()> *>(data));
            (*owned)();
            return G_SOURCE_REMOVE;
        }, new std::function<void()>(std::move(action)));
    }

    // Clicks the widget of a control through the display server.
    static void clickControl(HWND dialog, int32_t id) {
        GtkWidget *widget = gtk::automation::widgetOf(GetDlgItem(dialog, id));
        ASSERT_NE(widget, nullptr) << "control " << id;
        EXPECT_TRUE(gtk::automation::click(widget)) << "control " << id;
    }
    static GtkWidget *widgetOf(HWND dialog, int32_t id) { return gtk::automation::widgetOf(GetDlgItem(dialog, id)); }
    // Clicks a row of a list box or list view with a mouse button, `across` pixels into
    // its first cell (-1: the cell's middle); answers the screen point clicked.
    static GdkPoint clickRow(GtkWidget *view, int row, unsigned button, int across = -1) {
        GtkTreePath *path = gtk_tree_path_new_from_indices(row, -1);
        GdkRectangle cell{};
        gtk_tree_view_get_cell_area(GTK_TREE_VIEW(view), path, gtk_tree_view_get_column(GTK_TREE_VIEW(view), 0), &cell);
        gtk_tree_path_free(path);
        GdkPoint at{}, screen{};
        gtk_tree_view_convert_bin_window_to_widget_coords(GTK_TREE_VIEW(view), cell.x + (across < 0 ? cell.width / 2 : across),
                                                          cell.y + cell.height / 2, &at.x, &at.y);
        EXPECT_TRUE(gtk::automation::clickAt(view, at.x, at.y, button)) << "row " << row;
        GtkWidget *window = gtk_widget_get_toplevel(view);
        gtk_widget_translate_coordinates(view, window, at.x, at.y, &at.x, &at.y);
        gdk_window_get_origin(gtk_widget_get_window(window), &screen.x, &screen.y);
        return {screen.x + at.x, screen.y + at.y};
    }
    // The window as the screen shows it, with its title bar when a window manager runs.
    static void saveScreenshot(GtkWidget *window, const std::string &name) {
        EXPECT_TRUE(gtk::automation::saveFramedWindowImage(window, screenshotPath(name))) << name;
    }

private:
    guint watchdog_ = 0;
    std::vector<std::function<void(const gtk::automation::Shown &)>> acts_;
    std::size_t next_ = 0;
};

// A GTK renderer test run in each shipped language ("en", "de"), named by it.
class GtkRendererLanguageTest : public GtkRendererTest, public ::testing::WithParamInterface<std::string> {};
#define TABRA_INSTANTIATE_LANGUAGE_TEST(suite)                                                                         \
    INSTANTIATE_TEST_SUITE_P(Languages, suite, ::testing::Values("en", "de"),                                          \
                             [](const ::testing::TestParamInfo<std::string> &info) { return info.param; })

// A language test on a fresh SQLite database that the statements set up.
class GtkRendererSqliteTest : public GtkRendererLanguageTest {
protected:
    void setUpDatabase(const std::vector<std::u16string> &statements) {
        GtkRendererTest::SetUp();
        if (IsSkipped()) return;
        PrivateDataSources::instance().freshSqliteDatabase();
        connection_.emplace(dsn::SQLite);
        executeAll(*connection_, statements);
    }
    std::optional<OdbcConnection> connection_;
};

// The wizard frame's page that holds the control: any page, or only the one shown.
inline HWND pageHolding(HWND frame, int32_t control, bool shownOnly = false) {
    for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if ((!shownOnly || IsWindowVisible(child)) && GetDlgItem(child, control)) return child;
    return nullptr;
}

} // namespace tabra::test

#endif
