#pragma once

#include <functional>
#include <sys/types.h>

// Runs `body` in a forked child that then waits to be killed; returns the child's pid once the child
// has reported through a pipe that `body` returned, or -1 when no child could be made or it died first.
pid_t forkAndHold(const std::function<void()>& body);
