tarvik_fuzz_target(mn_position ${CMAKE_CURRENT_SOURCE_DIR}/mn_position.cpp tarvik_gps)
