#pragma once

#include <QCoreApplication>

// The one QCoreApplication of the tests without widgets that need an event loop (D-Bus, sockets).
inline void ensureCoreApplication() {
    static int argc = 1;
    static char name[] = "tarvik_core_tests";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) new QCoreApplication(argc, argv);
}
