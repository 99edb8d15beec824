tarvik_fuzz_target(source_stream ${CMAKE_CURRENT_SOURCE_DIR}/source_stream.cpp tarvik_gps)
