// Which renderer the library takes, checked in child processes (the choice is made
// once per process): without a display the scripted driver stands in, silently apart
// from its own report of the cancelled prompt, and GTK is never started; TABRA_UI=script
// keeps GTK out even with a display; with a display the GTK renderer shows the prompt
// and leaves the host's locale as it was.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "platform/script/scripted_renderer.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <clocale>
#include <cstring>

extern char **environ;

using namespace tabra::test;
namespace automation = tabra::gtk::automation;

namespace {

constexpr char kChildVariable[] = "TABRA_GTK_SELECTION_CHILD";

struct ChildRun {
    int status = -1;
    std::string output; // stdout and stderr together
};

std::string readAll(int descriptor) {
    std::string text;
    char buffer[4096];
    for (ssize_t got; (got = read(descriptor, buffer, sizeof buffer)) > 0;) text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

// Runs this test program's child test with the environment changed: `set` entries
// ("NAME=value") added, `unset` names removed.
ChildRun runChild(const std::vector<std::string> &set, const std::vector<std::string> &unset) {
    std::vector<std::string> environment;
    for (char **at = environ; *at; ++at) {
        std::string entry = *at;
        std::string name = entry.substr(0, entry.find('='));
        bool dropped = name == kChildVariable;
        for (const auto &gone : unset) dropped = dropped || name == gone;
        for (const auto &added : set) dropped = dropped || name == added.substr(0, added.find('='));
        if (!dropped) environment.push_back(entry);
    }
    environment.insert(environment.end(), set.begin(), set.end());
    environment.emplace_back(kChildVariable);
    environment.back() += "=1";
    std::vector<char *> environmentPointers;
    for (auto &entry : environment) environmentPointers.push_back(entry.data());
    environmentPointers.push_back(nullptr);

    std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    std::string filter = "--gtest_filter=GtkRendererSelectionChild.*";
    char *arguments[] = {program.data(), filter.data(), nullptr};

    int pipeEnds[2];
    ChildRun run;
    if (pipe(pipeEnds) != 0) return run;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDERR_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[0]);
    pid_t child = -1;
    int spawned = posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environmentPointers.data());
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    if (spawned == 0) {
        run.output = readAll(pipeEnds[0]);
        waitpid(child, &run.status, 0);
    }
    close(pipeEnds[0]);
    return run;
}

std::string reportLine(const std::string &output) {
    auto start = output.find("renderer=");
    return start == std::string::npos ? std::string() : output.substr(start, output.find('\n', start) - start);
}

// What a child reports: the renderer chosen, the answer to a Yes/No question, and
// whether GTK was started.
TEST(GtkRendererSelectionChild, ReportsTheChoice) {
    if (!std::getenv(kChildVariable)) GTEST_SKIP() << "runs as a child of the GtkRendererSelection tests";
    // With a display the question is answered by a click on No.
    automation::setShownCallback([](const automation::Shown &shown) {
        automation::click(automation::messageBoxButton(shown.window, IDNO));
    });
    int32_t answer = MessageBoxW(nullptr, u"Keep the changes?", u"Selection", MB_YESNO | MB_ICONQUESTION);
    std::printf("renderer=%s answer=%d gtk=%d numeric=%s\n", tabra::window::activeRenderer().name(), answer,
                tabra::gtk::sessionStarted() ? 1 : 0, std::setlocale(LC_NUMERIC, nullptr));
    automation::setShownCallback({});
}

TEST(GtkRendererSelection, WithoutDisplayTheScriptedDriverCancelsQuietly) {
    ChildRun run = runChild({"GSETTINGS_BACKEND=memory", "NO_AT_BRIDGE=1"}, {"DISPLAY", "WAYLAND_DISPLAY", "TABRA_UI"});
    ASSERT_TRUE(WIFEXITED(run.status) && WEXITSTATUS(run.status) == 0) << run.output;
    EXPECT_EQ(reportLine(run.output), "renderer=script answer=7 gtk=0 numeric=C") << run.output;
    EXPECT_NE(run.output.find("tabra: no user interface available"), std::string::npos)
        << "the user learns why nothing appeared\n" << run.output;
    for (const char *noise : {"Gtk-", "Gdk-", "GLib-", "cannot open display", "WARNING", "CRITICAL"})
        EXPECT_EQ(run.output.find(noise), std::string::npos) << noise << " in\n" << run.output;
}

TEST(GtkRendererSelection, ScriptChoiceNeverStartsGtk) {
    // With the display of this test (if there is one) still set.
    ChildRun run = runChild({"TABRA_UI=script", "GSETTINGS_BACKEND=memory", "NO_AT_BRIDGE=1"}, {});
    ASSERT_TRUE(WIFEXITED(run.status) && WEXITSTATUS(run.status) == 0) << run.output;
    EXPECT_EQ(reportLine(run.output), "renderer=script answer=7 gtk=0 numeric=C") << run.output;
    EXPECT_EQ(run.output.find("Gtk-"), std::string::npos) << run.output;
}

TEST(GtkRendererSelection, WithDisplayTheGtkRendererShowsThePrompt) {
    const char *display = std::getenv("DISPLAY");
    if (!display || !*display) GTEST_SKIP() << "no display (run under xvfb-run)";
    // GTK leaves the host's locale alone: the numbers keep the "C" form although the
    // environment names another locale.
    ChildRun run = runChild({"GSETTINGS_BACKEND=memory", "NO_AT_BRIDGE=1", "GDK_CORE_DEVICE_EVENTS=1", "LC_ALL=C.UTF-8"},
                            {"TABRA_UI"});
    ASSERT_TRUE(WIFEXITED(run.status) && WEXITSTATUS(run.status) == 0) << run.output;
    EXPECT_EQ(reportLine(run.output), "renderer=gtk answer=7 gtk=1 numeric=C") << run.output;
}

} // namespace

#endif
