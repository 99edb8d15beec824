#pragma once

#include <cstdint>

// What the document tells the alert sounds and the alert module once per epoch. The shell
// implements it; without one the document runs silently.
class AlertHooks {
public:
    virtual ~AlertHooks() = default;
    virtual void playNoFixSound() = 0;  // the second invalid epoch in a row
    virtual void playSignalSound() = 0; // the fix is back after a no-fix or no-data sound
    virtual void playNoDataSound() = 0; // the source is restarted after a silence, once per silence
    // The alert module's count of invalid epochs in a row; 0 when the fix came back.
    virtual void invalidEpochs(int count) = 0;
    // Once per valid epoch: speed sound, volume and the alert checks. Speed in whole km/h.
    virtual void validEpoch(int speedKmh) = 0;
};

// What the document tells the pages. The shell implements it; headless runs have none.
class PageHooks {
public:
    virtual ~PageHooks() = default;
    // Every sentence as received, for the raw-data page while it is shown.
    virtual void showRawSentence(const char* line, int length) = 0;
    // The map and page modules, and the track module when `withTrack`.
    virtual void refreshModules(bool withTrack) = 0;
    // Redraw every page; `hint` is the OR of GpsChange codes (GpsChange::kNoData when quiet).
    virtual void redrawPages(uint16_t hint) = 0;
};
