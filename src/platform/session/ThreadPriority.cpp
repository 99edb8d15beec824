#include "platform/session/ThreadPriority.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
constexpr int kBelowNormalNice = 5;
}

bool setCurrentThreadBelowNormal(bool below) {
    const auto thread = static_cast<id_t>(::syscall(SYS_gettid));
    if (below) {
        rlimit limit{};
        // Raising back to nice 0 needs RLIMIT_NICE of 20 or more, or privilege.
        const bool canRaiseAgain =
            ::geteuid() == 0 || (::getrlimit(RLIMIT_NICE, &limit) == 0 && limit.rlim_cur >= 20);
        return canRaiseAgain && ::setpriority(PRIO_PROCESS, thread, kBelowNormalNice) == 0;
    }
    return ::setpriority(PRIO_PROCESS, thread, 0) == 0;
}
