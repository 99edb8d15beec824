#include "platform/PhysicalMemory.h"

#include <cstdio>
#include <cstring>

int64_t availablePhysicalMemory() {
    std::FILE* file = std::fopen("/proc/meminfo", "re");
    if (!file) return 0;
    char line[256];
    long long kilobytes = 0;
    while (std::fgets(line, sizeof line, file))
        if (std::sscanf(line, "MemAvailable: %lld kB", &kilobytes) == 1) break;
    std::fclose(file);
    return static_cast<int64_t>(kilobytes) * 1024;
}
