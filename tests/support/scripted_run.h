// A run of the scripted driver for tests of the library's dialogs: begins a fresh run
// on construction and ends it on destruction, printing the run's report when the test
// failed. (Header only.)
#pragma once

#include "support/test_text.h"
#include "tabra_script.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace tabra::test {

class ScriptedRun {
public:
    ScriptedRun() { TabraScript_Begin(); }
    ~ScriptedRun() {
        if (::testing::Test::HasFailure()) std::fprintf(stderr, "%s\n", report().c_str());
        TabraScript_End();
    }
    ScriptedRun(const ScriptedRun &) = delete;
    ScriptedRun &operator=(const ScriptedRun &) = delete;

    // Queues script lines in order; a line that is not an action fails the test.
    template <class... Lines> void queue(const Lines &...lines) const { (queueLine(lines), ...); }
    void queueLine(const std::string &line) const {
        if (TabraScript_QueueUtf8(line.c_str()) == 1) return;
        char error[512];
        TabraScript_LastError(error, sizeof error);
        ADD_FAILURE() << "not an action: " << line << ": " << error;
    }
    void queueCallback(int32_t templateId, TabraScriptCallback callback, void *context) const {
        TabraScript_QueueCallback(templateId, callback, context);
    }

    bool failed() const { return TabraScript_Failed() != 0; }
    int pending() const { return TabraScript_PendingCount(); }

    std::string report() const {
        std::string text(static_cast<size_t>(TabraScript_ReportUtf8(nullptr, 0)) + 1, '\0');
        TabraScript_ReportUtf8(text.data(), static_cast<int32_t>(text.size()));
        text.resize(text.size() - 1);
        return text;
    }

    // Copies of the records of one kind (and id, unless -1), in order.
    struct Record {
        int32_t id = 0;
        int64_t value = 0;
        uint32_t style = 0;
        uint32_t code = 0;
        std::u16string text, caption;
        int32_t index = -1; // position in the run, for control texts of closed dialogs
    };
    std::vector<Record> records(int32_t kind, int32_t id = -1) const {
        std::vector<Record> found;
        for (int32_t i = TabraScript_FindRecord(kind, id, 0); i >= 0; i = TabraScript_FindRecord(kind, id, i + 1)) {
            TabraScriptRecord r{};
            TabraScript_GetRecord(i, &r);
            found.push_back({r.id, r.value, r.style, r.code, r.text, r.caption, i});
        }
        return found;
    }

    // The text a control had when the last dialog of that template closed.
    std::u16string closedControlText(int32_t templateId, int32_t controlId) const {
        auto closed = records(TABRA_RECORD_DIALOG_CLOSED, templateId);
        if (closed.empty()) return u"<not closed>";
        char16_t buffer[4000] = {};
        if (TabraScript_GetRecordControlText(closed.back().index, controlId, buffer, 4000) < 0) return u"<no control>";
        return buffer;
    }
};

// A scripted run that used all its lines without a failure.
inline void expectPlayed(const ScriptedRun &run) {
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(run.pending(), 0) << run.report();
}

} // namespace tabra::test
