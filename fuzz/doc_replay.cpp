// Any bytes as a recorded log, through the whole hand-over: log writer, interpreter, epoch handling
// and statistics, on the recording's own time line.
#include "gps/HeadlessReplay.h"
#include "platform/DeviceClock.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "settings/RegistryHive.h"

#include <QTemporaryDir>
#include <memory>

namespace {

// One device root for the whole fuzzing session, logging every sentence of GGA, RMC and VTG.
const DeviceRoot& fuzzRoot() {
    static QTemporaryDir dir;
    static const DeviceRoot root = [] {
        DeviceRoot made(dir.path());
        RegistryHive::setCurrent(std::make_shared<RegistryHive>(made.registryFile()));
        CRegistryKey key;
        key.WriteDword("LogDelay", 0);
        key.WriteString("LogType", "$GPGGA,$GPRMC,$GPVTG");
        return made;
    }();
    return root;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FixedDeviceClock clock(1779451200); // 2026-05-22 12:00 UTC
    replayLog(fuzzRoot(), clock, QByteArrayView(data, static_cast<qsizetype>(size)));
    return 0;
}
