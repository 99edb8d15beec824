#pragma once

#include <cstdint>

// Free physical memory in bytes, the handheld's GlobalMemoryStatus dwAvailPhys: MemAvailable of
// /proc/meminfo (memory that can be had without swapping). 0 when it cannot be read.
int64_t availablePhysicalMemory();
