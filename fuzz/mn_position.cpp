// Any bytes as the navigation program's position file "MNPosition.txt".
#include "gps/sources/MNPositionFile.h"

#include <QByteArray>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const MNPosition position =
        MNPositionFile::parse(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    (void)position.sameMotion(MNPosition{});
    return 0;
}
