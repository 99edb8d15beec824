tarvik_fuzz_target(track_log_reader ${CMAKE_CURRENT_SOURCE_DIR}/track_log_reader.cpp tarvik_gps)
