#include "platform/TickCount.h"

#include <ctime>

uint32_t tickCount() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint32_t>(static_cast<uint64_t>(now.tv_sec) * 1000u + now.tv_nsec / 1000000);
}
