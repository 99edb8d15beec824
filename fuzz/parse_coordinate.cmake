tarvik_fuzz_target(parse_coordinate ${CMAKE_CURRENT_SOURCE_DIR}/parse_coordinate.cpp tarvik_nav)
