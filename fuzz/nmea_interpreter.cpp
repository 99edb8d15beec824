// Any bytes as received lines: the splitter, the converters, every sentence handler and the
// satellite table must stay inside each line. Each line gets a buffer of its exact size, so a
// read past its end is caught.
#include "gps/NmeaInterpreter.h"
#include "gps/SatelliteTable.h"
#include "gps/SyntheticGga.h"
#include "platform/DeviceClock.h"

#include <cstdint>
#include <cstring>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FixedDeviceClock clock(1795305630, 3600);
    NmeaInterpreter interpreter(clock);
    SatelliteTable satellites;
    interpreter.setSatelliteObserver(&satellites);
    GpsFix fix;
    const char* text = reinterpret_cast<const char*>(data);
    const char* const end = text + size;
    while (text < end) {
        const char* newline =
            static_cast<const char*>(std::memchr(text, '\n', static_cast<size_t>(end - text)));
        const size_t length = static_cast<size_t>((newline ? newline : end) - text);
        const auto line = std::make_unique<char[]>(length);
        std::memcpy(line.get(), text, length);
        const uint16_t code = interpreter.interpret({line.get(), length}, fix);
        if (code > 98) __builtin_trap(); // no other change code exists
        text += length + 1;
    }
    (void)buildSyntheticGga(fix, clock.localOffset());
    return 0;
}
