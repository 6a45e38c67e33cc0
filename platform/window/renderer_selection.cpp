// The renderer choice, made once, at the first window the library shows.
#include "platform/window/renderer_selection.h"

#include "platform/script/scripted_renderer.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tabra::window {
namespace {

struct Choice {
    Renderer *overriding = nullptr;
    bool scriptSelected = false; // a host asked for the scripted driver
    bool decided = false;
    std::unique_ptr<Renderer> gtk;
};

Choice &choice() {
    static auto *state = new Choice; // renderers must outlive every static destructor
    return *state;
}

void decide(Choice &state) {
    state.decided = true;
    const char *ui = std::getenv("TABRA_UI");
    if (ui && std::strcmp(ui, "script") == 0) return;
    if (createGtkRenderer) state.gtk = createGtkRenderer();
    if (!state.gtk) {
        scriptedRenderer().setFallback(true);
        if (ui && std::strcmp(ui, "gtk") == 0)
            std::fprintf(stderr, "tabra: TABRA_UI=gtk but no display could be opened; dialogs are cancelled\n");
    }
}

} // namespace

ScriptedRenderer &scriptedRenderer() {
    static auto *renderer = new ScriptedRenderer;
    return *renderer;
}

Renderer &activeRenderer() {
    auto &state = choice();
    if (state.overriding) return *state.overriding;
    if (state.scriptSelected) return scriptedRenderer();
    if (!state.decided) decide(state);
    if (state.gtk) return *state.gtk;
    return scriptedRenderer();
}

void selectScriptedRenderer() {
    choice().scriptSelected = true;
    scriptedRenderer().setFallback(false);
}

void releaseScriptedRenderer() {
    auto &state = choice();
    state.scriptSelected = false;
    if (state.decided && !state.gtk) scriptedRenderer().setFallback(true);
}

void overrideRenderer(Renderer *renderer) { choice().overriding = renderer; }

} // namespace tabra::window
