// Engine -> widgets: puts the engine's state of a window into its widgets, wholly
// (after the widgets were made) or one change at a time (Renderer::windowChanged).
// The caller keeps signal handlers from taking these updates for user input (see
// widget_input.h). Top-level windows are shown, hidden, titled and centred by the
// renderer itself.
#pragma once

#include "platform/gtk/widget_record.h"
#include "platform/window/renderer.h"

namespace tabra::gtk {

// Gives the keyboard focus to a control's widget (a combo box passes it to its part).
void giveFocus(GtkWidget *widget);

void syncWindow(WidgetRecord &record, const window::Window &window, RecordLookup &lookup);
// What user input may have left different from the engine (a check the engine did not
// take, a refused selection, an upper-cased text): text, check and selection, without
// refilling lists.
void syncAfterInput(WidgetRecord &record, const window::Window &window, RecordLookup &lookup);
void applyChange(WidgetRecord &record, const window::Window &window, window::Change change, int32_t index,
                 RecordLookup &lookup);

} // namespace tabra::gtk
