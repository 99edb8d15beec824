#include "platform/audio/AudioNotice.h"

#include <atomic>
#include <cstdio>

void noteMissingAudioOnce(const char* message) {
    static std::atomic<bool> s_bNoted{false};
    if (!s_bNoted.exchange(true)) std::fprintf(stderr, "tarvik: %s\n", message);
}
