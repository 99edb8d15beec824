tarvik_fuzz_target(waypoint_reader ${CMAKE_CURRENT_SOURCE_DIR}/waypoint_reader.cpp tarvik_nav)
