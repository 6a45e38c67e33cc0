// Shared pieces of the dialog engine tests: dialog templates built in code, a resource
// module holding them, dialog procedures made of lambdas, and a fixture that runs
// every test on the scripted driver. (Header only: the test build compiles *_test.cpp.)
#pragma once

#include "ostrel_ui.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/resource_model.h"
#include "support/scripted_run.h"
#include "support/test_text.h"
#include "tabra_script.h"
#include "tabra_window.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tabra::test {

// A dialog template, control by control (positions do not matter to the engine).
class DialogBuilder {
public:
    explicit DialogBuilder(int32_t id, std::u16string caption = u"Dialog") {
        template_.id = id;
        template_.caption = std::move(caption);
        template_.width = 200;
        template_.height = 100;
    }

    DialogBuilder &control(platform::ControlKind kind, int32_t id, std::u16string text = u"", uint32_t style = 0,
                           uint32_t extendedStyle = 0) {
        platform::ControlTemplate control;
        control.kind = kind;
        control.id = id;
        control.text = std::move(text);
        control.style = style | WS_CHILD | WS_VISIBLE;
        control.extendedStyle = extendedStyle;
        control.width = 50;
        control.height = 14;
        template_.controls.push_back(std::move(control));
        return *this;
    }
    DialogBuilder &label(std::u16string text) { return control(platform::ControlKind::Static, -1, std::move(text)); }
    DialogBuilder &edit(int32_t id, uint32_t style = 0) { return control(platform::ControlKind::Edit, id, u"", style | WS_TABSTOP); }
    DialogBuilder &button(int32_t id, std::u16string text, uint32_t style = BS_PUSHBUTTON) {
        return control(platform::ControlKind::PushButton, id, std::move(text), style | WS_TABSTOP);
    }
    DialogBuilder &checkBox(int32_t id, uint32_t style = BS_AUTOCHECKBOX) {
        return control(platform::ControlKind::CheckBox, id, u"Check", style | WS_TABSTOP);
    }
    DialogBuilder &radio(int32_t id, bool startsGroup, uint32_t style = BS_AUTORADIOBUTTON) {
        return control(platform::ControlKind::RadioButton, id, u"Radio", style | (startsGroup ? WS_GROUP : 0u));
    }
    DialogBuilder &listBox(int32_t id, uint32_t style = 0) { return control(platform::ControlKind::ListBox, id, u"", style | WS_TABSTOP); }
    DialogBuilder &comboBox(int32_t id, uint32_t style) { return control(platform::ControlKind::ComboBox, id, u"", style | WS_TABSTOP); }
    DialogBuilder &listView(int32_t id, uint32_t style = LVS_REPORT) {
        return control(platform::ControlKind::ListView, id, u"", style | WS_TABSTOP);
    }
    DialogBuilder &tabControl(int32_t id) { return control(platform::ControlKind::TabControl, id, u"", WS_TABSTOP); }
    // OK and Cancel side by side, OK's top left at (x, y).
    DialogBuilder &okCancel(int x = 0, int y = 0) {
        return button(IDOK, u"OK", BS_DEFPUSHBUTTON).at(x, y, 50, 14).button(IDCANCEL, u"Cancel").at(x + 54, y, 50, 14);
    }
    // Makes the template a page (WS_CHILD) for tab controls and wizards.
    DialogBuilder &page() {
        template_.childPage = true;
        template_.style |= WS_CHILD;
        return *this;
    }
    // Places the last control added (dialog units); sizes the dialog and gives it a font.
    DialogBuilder &at(int x, int y, int width, int height) {
        auto &control = template_.controls.back();
        control.x = x, control.y = y, control.width = width, control.height = height;
        return *this;
    }
    DialogBuilder &size(int width, int height, std::u16string font = u"Sans", int fontSize = 8) {
        template_.width = width, template_.height = height, template_.fontSize = fontSize;
        template_.fontName = std::move(font);
        return *this;
    }

    const platform::DialogTemplate &get() const { return template_; }

private:
    platform::DialogTemplate template_;
};

// A resource library made in memory, freed at the end of the test.
class TestModule {
public:
    TestModule() {
        auto module = std::make_unique<platform::ResourceModule>();
        tables_ = &module->tables;
        handle_ = platform::adoptResourceModule(std::move(module));
    }
    ~TestModule() { platform::releaseResourceModule(handle_); }
    TestModule(const TestModule &) = delete;
    TestModule &operator=(const TestModule &) = delete;

    TestModule &add(const DialogBuilder &dialog) {
        tables_->dialogs[dialog.get().id] = dialog.get();
        return *this;
    }
    TestModule &addString(int32_t id, std::u16string text, uint32_t messageBoxStyle = 0) {
        tables_->strings[id] = {std::move(text), messageBoxStyle};
        return *this;
    }
    TestModule &addMenu(platform::MenuTemplate menu) {
        tables_->menus[menu.id] = std::move(menu);
        return *this;
    }
    HMODULE handle() const { return handle_; }

private:
    HMODULE handle_ = nullptr;
    platform::ResourceTables *tables_ = nullptr;
};

// A dialog procedure made of a lambda: pass a Procedure* as the dialog parameter and
// functionProcedure as the DLGPROC; the procedure sees every message from
// WM_INITDIALOG on (its pointer lives in GWLP_USERDATA).
using Procedure = std::function<INT_PTR(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam)>;
inline INT_PTR functionProcedure(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
    auto *procedure = reinterpret_cast<Procedure *>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    return procedure && *procedure ? (*procedure)(dialog, message, wParam, lParam) : 0;
}

inline INT_PTR runDialog(const TestModule &module, int32_t templateId, Procedure &procedure,
                         HWND owner = nullptr) {
    return DialogBoxParamW(module.handle(), templateId, owner, functionProcedure, reinterpret_cast<LPARAM>(&procedure));
}
inline HWND createModeless(const TestModule &module, int32_t templateId, Procedure &procedure,
                           HWND parent = nullptr) {
    return CreateDialogParamW(module.handle(), templateId, parent, functionProcedure, reinterpret_cast<LPARAM>(&procedure));
}

// A procedure that handles nothing (the default handling applies).
inline Procedure &plainProcedure() {
    static Procedure procedure = [](HWND, uint32_t, WPARAM, LPARAM) -> INT_PTR { return 0; };
    return procedure;
}

// WM_COMMAND and WM_NOTIFY as a test saw them.
struct SeenCommand {
    int32_t id;
    int32_t notification;
    bool operator==(const SeenCommand &) const = default;
};

// A procedure that records every WM_COMMAND into commands, calls initialise at
// WM_INITDIALOG, onCommand for each command, and ends the dialog on OK and Cancel with
// their id after atEnd.
using DialogHook = std::function<void(HWND dialog)>;
inline Procedure recordingProcedure(std::vector<SeenCommand> &commands, DialogHook initialise = {},
                                    DialogHook atEnd = {},
                                    std::function<void(HWND, int32_t id, int32_t notification)> onCommand = {}) {
    return [&commands, initialise, atEnd, onCommand](HWND dialog, uint32_t message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG && initialise) initialise(dialog);
        if (message != WM_COMMAND) return 0;
        int32_t id = LOWORD(wParam), notification = static_cast<int16_t>(HIWORD(wParam));
        commands.push_back({id, notification});
        if (onCommand) onCommand(dialog, id, notification);
        if (id == IDOK || id == IDCANCEL) {
            if (atEnd) atEnd(dialog);
            EndDialog(dialog, id);
        }
        return 1;
    };
}

// Every test runs on the scripted driver with an empty run; a failed test prints the
// run's report.
class ScriptedTest : public ::testing::Test {
protected:
    // Queues script lines; the test fails when a line is not an action.
    template <class... Lines> void queue(const Lines &...lines) { run_.queue(lines...); }
    std::string report() const { return run_.report(); }
    // Runs the dialog on the queued script and answers its result; a failed run fails the test.
    INT_PTR runScripted(const TestModule &module, int32_t templateId, Procedure &procedure) {
        const INT_PTR result = runDialog(module, templateId, procedure);
        EXPECT_FALSE(TabraScript_Failed()) << report();
        return result;
    }
    std::vector<TabraScriptRecord> recordsOf(int32_t kind) const {
        std::vector<TabraScriptRecord> found;
        for (int32_t i = 0; i < TabraScript_RecordCount(); ++i) {
            TabraScriptRecord record{};
            if (TabraScript_GetRecord(i, &record) && record.kind == kind) found.push_back(record);
        }
        return found;
    }

private:
    ScriptedRun run_;
};

inline std::u16string windowText(HWND window) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    int32_t length = GetWindowTextW(window, text.data(), static_cast<int32_t>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

inline std::u16string u16(std::string_view utf8) { return toUtf16(utf8); }

} // namespace tabra::test
