tarvik_fuzz_target(asc_reader ${CMAKE_CURRENT_SOURCE_DIR}/asc_reader.cpp tarvik_nav)
