#pragma once

#include <cstdint>

// Milliseconds of the monotonic clock, the handheld's GetTickCount. Wraps like the original
// 32-bit counter when narrowed by callers that keep it in 32 bits.
uint32_t tickCount();
