// Any bytes as a .tk track file: read, its running km never falling, written and read back.
#include "nav/track/TkFile.h"

#include <QByteArray>
#include <cmath>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const TrackVertices track = ReadTk(bytes);
    if (track.size() > size / 2) __builtin_trap();
    const std::vector<double> km = RunningKm(track);
    if (km.size() != track.size()) __builtin_trap();
    for (size_t i = 1; i < km.size(); ++i)
        if (km[i] < km[i - 1]) __builtin_trap(); // NaN compares false and passes
    if (ReadTk(WriteTk(track)).size() != track.size()) __builtin_trap();
    return 0;
}
