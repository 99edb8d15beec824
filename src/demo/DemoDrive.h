#pragma once

#include <QByteArray>
#include <cstdint>

// The demo drive: about 20 minutes from Leutkirch to Isny in the Allgäu, through town, over a
// country road with a break in a lay-by and through a tunnel where the fix is lost, recorded as a
// track log (header line, then the receiver's sentences). The same options give the same bytes.
struct DemoDriveOptions {
    static constexpr int64_t kDefaultStartUtc = 1747466040; // 2025-05-17 07:14:00 UTC

    uint64_t m_nSeed = 1;
    int64_t m_tStartUtc = kDefaultStartUtc; // seconds since 1970
};

QByteArray generateDemoDrive(const DemoDriveOptions& options);
