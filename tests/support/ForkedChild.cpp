#include "ForkedChild.h"

#include <sys/wait.h>
#include <unistd.h>

pid_t forkAndHold(const std::function<void()>& body) {
    int ready[2];
    if (::pipe(ready) != 0) return -1;
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(ready[0]);
        body();
        const char done = 1;
        if (::write(ready[1], &done, 1) != 1) _exit(1);
        for (;;)
            ::pause();
    }
    ::close(ready[1]);
    char done = 0;
    const bool reported = pid > 0 && ::read(ready[0], &done, 1) == 1;
    ::close(ready[0]);
    if (pid > 0 && !reported) ::waitpid(pid, nullptr, 0);
    return reported ? pid : -1;
}
