#pragma once

#include <QString>

// Why no window can be shown, in one line, or empty when a display is there: checked before the
// toolkit starts, which would otherwise abort without a word a user can act on.
// An explicit QT_QPA_PLATFORM and a Wayland session are trusted; an X display is connected to.
QString missingDisplayReason();
