// Which renderer draws the windows. The scripted driver when a host selected it
// (TabraScript_Begin) or TABRA_UI=script is set; otherwise the GTK renderer when the
// library was built with it and a display can be opened (TABRA_UI=gtk insists on it
// and falls back only when no display is there); otherwise the scripted driver as a
// fallback, which (with nothing queued) cancels every prompt and reports each one on
// stderr. The choice is made at the first use and kept.
#pragma once

#include "platform/window/renderer.h"

#include <memory>

namespace tabra::window {

class ScriptedRenderer;

Renderer &activeRenderer();
// The scripted driver (there is one per process).
ScriptedRenderer &scriptedRenderer();

// TabraScript_Begin / TabraScript_End: select the scripted driver explicitly, or go
// back to the normal choice.
void selectScriptedRenderer();
void releaseScriptedRenderer();

// Puts a renderer of the caller's in charge (it wins over every other choice) until it
// is called with null. For tests of the renderer contract; the caller keeps it alive.
void overrideRenderer(Renderer *renderer);

// The GTK renderer's factory. platform/gtk/ defines it when the library is built with
// TABRA_WITH_GTK; it answers null when no display can be opened. The declaration is
// weak, so that the library links (and always scripts) without it.
std::unique_ptr<Renderer> createGtkRenderer() __attribute__((weak));

} // namespace tabra::window
