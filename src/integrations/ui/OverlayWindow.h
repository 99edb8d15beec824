#pragma once

class QWidget;

// A window over the navigation program: frameless, above other windows, never taking the focus
// from the program below it.
void makeOverlayWindow(QWidget& window);
