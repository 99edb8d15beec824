#pragma once

class NmeaFields;

// Receives the satellite sentences the interpreter does not fold into GpsFix. The fields are
// valid only during the call.
class SatelliteObserver {
public:
    virtual ~SatelliteObserver() = default;
    virtual void onGsa(const NmeaFields& fields) = 0;
    virtual void onGsv(const NmeaFields& fields) = 0;
};
