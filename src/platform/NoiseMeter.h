#pragma once

// The ambient noise level, measured while started (from the default audio input on this machine).
class NoiseMeter {
public:
    virtual ~NoiseMeter() = default;
    virtual void start() = 0;
    virtual void stop() = 0;
    // 0 (quiet, or not measuring) .. 255 (full-scale noise); one unit is a quarter decibel.
    virtual int level() const = 0;
};
