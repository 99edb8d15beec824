#pragma once

// The developer log: written only while the registry string "Develop" names a file. Each entry is
// the tick count in milliseconds ("%d "), the printf-formatted message and "\n". Strings passed for
// "%s" are UTF-8.
void devLog(const char* format, ...) __attribute__((format(printf, 1, 2)));
// The source-line form without a message: "util line 137".
void devLog();
