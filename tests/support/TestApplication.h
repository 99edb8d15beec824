#pragma once

#include <QApplication>

// The one QApplication of the widget tests; never destroyed, as tests end with the process.
inline void ensureApplication() {
    static int argc = 1;
    static char name[] = "tarvik_widget_tests";
    static char* argv[] = {name, nullptr};
    if (!qApp) new QApplication(argc, argv);
}
