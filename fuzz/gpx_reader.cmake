tarvik_fuzz_target(gpx_reader ${CMAKE_CURRENT_SOURCE_DIR}/gpx_reader.cpp tarvik_nav)
