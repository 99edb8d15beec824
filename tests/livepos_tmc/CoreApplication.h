#pragma once

#include <QCoreApplication>

// The one application object of these tests (queued calls need it); never destroyed.
inline void ensureCoreApplication() {
    static int argc = 1;
    static char name[] = "tarvik_livepos_tmc_tests";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) new QCoreApplication(argc, argv);
}
