// Dragging entries between lists: the tree views of the list boxes and list views the
// engine marks as drag sources or drop targets (Ostrel_SetListDragDrop) take part in
// a GTK drag of one row inside the application. A drop is delivered as the user input
// window::input::dropEntry; GTK moves no row by itself (the dialog decides, and what
// it changes comes back from the engine as usual).
#pragma once

#include "platform/gtk/widget_record.h"
#include "platform/window/window_object.h"

namespace tabra::gtk {

// Makes the list's tree view a drag source and drop target as its flags say.
void syncListDragDrop(const WidgetRecord &record, const window::Window &list);

} // namespace tabra::gtk
