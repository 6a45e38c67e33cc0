// Pictures and lines of dialogs: a picture control (SS_BITMAP static) shows the
// picture of its dialog's resource library that its text names ("#10022"), and an
// etched static (SS_ETCHEDHORZ) is a separator line.
#pragma once

#include "platform/window/window_object.h"

#include <gtk/gtk.h>

namespace tabra::gtk {

// A widget that fills its place with the picture, scaled to cover it (centred, the
// overflow cut off) and drawn at the screen's scale factor; the place stays empty when
// the library has no such picture or its file does not load.
GtkWidget *newPictureWidget(const window::Window &control);

bool isEtchedLine(const window::Window &control);
GtkWidget *newEtchedLine();

} // namespace tabra::gtk
