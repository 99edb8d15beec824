// Compiled against one library's include folders with PROBE_HEADER set by tests/floors/CMakeLists.txt.
#include PROBE_HEADER
